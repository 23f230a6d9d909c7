#include "messagebar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace TovaView {

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), m_label(new QLabel)
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_label->setForegroundRole(QPalette::ToolTipText);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto* close = new QToolButton;
    close->setAutoRaise(true);
    close->setText(QStringLiteral("×"));
    close->setToolTip(QStringLiteral("Close"));
    QObject::connect(close, &QToolButton::clicked, this, &QWidget::hide);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 3, 4, 3);
    layout->addWidget(m_label, 1);
    layout->addWidget(close);
    hide();
}

void MessageBar::say(const QString& line)
{
    m_line = line;
    m_label->setToolTip(line);
    show();
    showLine();
}

void MessageBar::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    showLine();
}

void MessageBar::showLine()
{
    m_label->setText(fontMetrics().elidedText(m_line, Qt::ElideMiddle, m_label->width()));
}

} // namespace TovaView
