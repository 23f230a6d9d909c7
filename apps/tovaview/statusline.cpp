#include "statusline.h"

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

#include <cmath>

namespace TovaView {

StatusLine::StatusLine(QStatusBar& bar, Handlers handlers)
    : m_pointer(new QLabel(&bar)), m_size(new QLabel(&bar))
{
    // What is on the left is in the way of messages. The width keeps what is beside it at rest.
    m_pointer->setMinimumWidth(
        bar.fontMetrics().horizontalAdvance(QStringLiteral("-10000, -10000")));
    m_pointer->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_pointer->setToolTip(QStringLiteral("Where the pointer is, in points"));
    m_size->setContentsMargins(12, 0, 12, 0);
    bar.addPermanentWidget(m_pointer);
    bar.addPermanentWidget(m_size);
    m_out = addButton(bar, "−", "Zoom out", std::move(handlers.zoomOut));
    m_zoom = new ZoomBox(std::move(handlers.zoom), &bar);
    bar.addPermanentWidget(m_zoom);
    m_in = addButton(bar, "+", "Zoom in", std::move(handlers.zoomIn));
}

QToolButton* StatusLine::addButton(QStatusBar& bar, const char* text, const char* tip,
                                   std::function<void()> command)
{
    auto* button = new QToolButton(&bar);
    button->setText(QString::fromUtf8(text));
    button->setToolTip(QString::fromUtf8(tip));
    button->setAutoRaise(true);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    QObject::connect(button, &QToolButton::clicked, button, [command] { command(); });
    bar.addPermanentWidget(button);
    return button;
}

void StatusLine::showPointer(const std::optional<Vetra::GLPoint<double>>& position)
{
    m_pointer->setText(
        position
            ? QStringLiteral("%1, %2").arg(std::round(position->x)).arg(std::round(position->y))
            : QString());
}

void StatusLine::showSize(const DiagramCounts& counts)
{
    const auto times = [](std::size_t count, const char* thing) {
        return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(thing),
                                                        QLatin1String(count == 1 ? "" : "s"));
    };
    m_size->setText(times(counts.blocks, "block") + QStringLiteral(", ") +
                    times(counts.connectors, "connector"));
}

void StatusLine::setEnabled(bool enabled)
{
    for (QWidget* widget :
         {static_cast<QWidget*>(m_out), static_cast<QWidget*>(m_zoom), static_cast<QWidget*>(m_in)})
        widget->setEnabled(enabled);
    if (!enabled)
        m_size->clear();
}

} // namespace TovaView
