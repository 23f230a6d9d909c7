#include "widgetlink.h"

#include "widgets/glwidget2.h"

#include "vetra/errorreporter.h"
#include "vetra/qt.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <exception>

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
    else if (event.type() == QEvent::Show && !event.spontaneous())
        emitters.show.send({m_owner});
    else if (event.type() == QEvent::Hide && !event.spontaneous())
        emitters.hide.send({m_owner});
}

} // namespace Widgets
