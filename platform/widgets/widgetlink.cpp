#include "widgetlink.h"

#include "widgets/glwidget2.h"

#include "vetra/errorreporter.h"
#include "vetra/qt.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <exception>
#include <utility>

namespace Widgets {

namespace {

bool isOfInterest(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::Close:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
        return true;
    default:
        return false;
    }
}

} // namespace

WidgetLink::WidgetLink(GLWidget2& owner, QWidget& widget) : QObject(&widget), m_owner(&owner)
{
    widget.installEventFilter(this);
}

bool WidgetLink::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != parent())
        return false;
    if (!m_owner)
        return event->type() != QEvent::DeferredDelete;
    if (!isOfInterest(*event))
        return false;
    deliver(*watched, *event);
    return true;
}

// Listeners hear of it when the widget has dealt with it, so the event goes on from here.
void WidgetLink::deliver(QObject& widget, QEvent& event)
{
    const GLObject::Use use(*m_owner);
    const QPointer<WidgetLink> self(this);
    try {
        widget.event(&event);
        if (self && m_owner)
            tell(event);
    } catch (...) {
        Vetra::reportError(std::current_exception(), "Widget event");
    }
}

void WidgetLink::tell(const QEvent& event)
{
    GLWidgetEmitters& emitters = m_owner->getGLWidgetEmitters();
    if (event.type() == QEvent::Resize)
        emitters.resize.send(m_owner->getSize());
    else if (event.type() == QEvent::Move)
        emitters.move.send(m_owner->getPosition());
    else if (event.type() == QEvent::Close && event.isAccepted())
        emitters.close.send({m_owner});
    else if (!event.spontaneous())
        tellVisibility();
}

// The toolkit also sends the event to what was not visible anyway.
void WidgetLink::tellVisibility()
{
    const bool isVisible = m_owner->isVisible();
    if (std::exchange(m_wasVisible, isVisible) == isVisible)
        return;
    GLWidgetEmitters& emitters = m_owner->getGLWidgetEmitters();
    (isVisible ? emitters.show : emitters.hide).send({m_owner});
}

} // namespace Widgets
