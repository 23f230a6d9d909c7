#include "statusline.h"

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

#include <cmath>

namespace TovaView {

StatusLine::StatusLine(QStatusBar& bar, Handlers handlers)
    : m_pointer(new QLabel(&bar)), m_crossings(new QLabel(&bar))
{
    // What is on the left is in the way of messages. The width keeps what is beside it at rest.
    m_pointer->setMinimumWidth(
        bar.fontMetrics().horizontalAdvance(QStringLiteral("-10000, -10000")));
    m_pointer->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_pointer->setToolTip(QStringLiteral("Where the pointer is, in points"));
    m_crossings->setContentsMargins(12, 0, 12, 0);
    bar.addPermanentWidget(m_pointer);
    bar.addPermanentWidget(m_crossings);
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

void StatusLine::showCrossings(std::size_t count)
{
    m_crossings->setText(count == 1 ? QStringLiteral("1 crossing")
                                    : QStringLiteral("%1 crossings").arg(count));
}

void StatusLine::setEnabled(bool enabled)
{
    for (QWidget* widget :
         {static_cast<QWidget*>(m_out), static_cast<QWidget*>(m_zoom), static_cast<QWidget*>(m_in)})
        widget->setEnabled(enabled);
    if (!enabled)
        m_crossings->clear();
}

} // namespace TovaView
