#include "zoombox.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>

namespace TovaView {
namespace {

constexpr int steps[] = {10, 25, 50, 75, 100, 150, 200, 400, 800};
constexpr double largestPercentage = 1e6;

QString textOf(double scale)
{
    const double percentage = scale * 100;
    return QStringLiteral("%1 %").arg(percentage, 0, 'f', percentage < 10 ? 1 : 0);
}

} // namespace

ZoomBox::ZoomBox(Handlers handlers, QWidget* parent)
    : QComboBox(parent), m_handlers(std::move(handlers))
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(12);
    setToolTip(QStringLiteral("Zoom"));
    setAccessibleName(QStringLiteral("Zoom"));
    lineEdit()->setAlignment(Qt::AlignRight);
    for (const int step : steps)
        addItem(textOf(step / 100.0), step / 100.0);
    addItem(QStringLiteral("Fit"));
    setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("100000 %")) + 34);
    QObject::connect(this, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        const QVariant scale = itemData(index);
        scale.isValid() ? m_handlers.zoom(scale.toDouble()) : m_handlers.fit();
        m_handlers.done();
    });
    showScale(1);
}

void ZoomBox::showScale(double scale)
{
    const QSignalBlocker blocker(this);
    m_scale = scale;
    setCurrentIndex(findData(scale));
    setEditText(textOf(scale));
}

std::optional<double> ZoomBox::scaleOf(const QString& text)
{
    QString number = text.trimmed();
    if (number.endsWith(QLatin1Char('%')))
        number.chop(1);
    bool isNumber = false;
    double percentage = number.trimmed().toDouble(&isNumber);
    if (!isNumber)
        percentage = QLocale().toDouble(number.trimmed(), &isNumber);
    if (!isNumber || !(percentage > 0) || percentage > largestPercentage)
        return {};
    return percentage / 100;
}

void ZoomBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        takeText();
        m_handlers.done();
    } else if (event->key() == Qt::Key_Escape) {
        showScale(m_scale);
        m_handlers.done();
    } else {
        QComboBox::keyPressEvent(event);
    }
}

void ZoomBox::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    if (!view()->isVisible())
        showScale(m_scale);
}

void ZoomBox::takeText()
{
    const QString text = currentText();
    const auto scale = scaleOf(text);
    if (text.trimmed().compare(QLatin1String("fit"), Qt::CaseInsensitive) == 0)
        m_handlers.fit();
    else if (scale)
        m_handlers.zoom(*scale);
    showScale(m_scale);
}

} // namespace TovaView
