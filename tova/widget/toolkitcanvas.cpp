#include "widget/toolkitcanvas.h"

#include "widget/glcanvasprivate.h"
#include "widget/guarded.h"

#include <QEvent>
#include <QFocusEvent>
#include <QPaintEvent>

namespace Tova2 {

namespace {

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

} // namespace

ToolkitCanvas::ToolkitCanvas()
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

bool ToolkitCanvas::event(QEvent* event)
{
    // The copy of the picture on a screen of another resolution.
    if (event->type() == QEvent::ScreenChangeInternal && m_canvas)
        m_canvas->repaintAll();
    if (m_canvas && m_canvas->dispatch(*event))
        return true;
    return QWidget::event(event);
}

void ToolkitCanvas::paintEvent(QPaintEvent* event)
{
    if (m_canvas)
        guarded("Paint", [&] { m_canvas->paint(event->region()); });
}

void ToolkitCanvas::resizeEvent(QResizeEvent*)
{
    if (m_canvas)
        guarded("Resize", [&] { m_canvas->viewResized(); });
}

void ToolkitCanvas::focusInEvent(QFocusEvent* event)
{
    m_showsFocus = isByKeyboard(event->reason());
    update();
}

void ToolkitCanvas::focusOutEvent(QFocusEvent*)
{
    m_showsFocus = false;
    update();
}

} // namespace Tova2
