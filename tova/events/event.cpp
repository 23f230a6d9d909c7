#include "tova/events/event.h"

#include "tova/events/eventcanvas.h"

#include <atomic>

namespace Tova2 {

namespace {

std::uint32_t nextSerialNumber() noexcept
{
    static std::atomic<std::uint32_t> last{0};
    return ++last;
}

} // namespace

EventCanvas::~EventCanvas() = default;

Event::Event(EventType type, EventCanvas* canvas, bool isSyntheticAutoscroll)
    : m_scene(canvas ? canvas->getScene() : nullptr)
    , m_canvas(canvas)
    , m_watch(canvas)
    , m_type(type)
    , m_isSyntheticAutoscroll(isSyntheticAutoscroll)
    , m_serialNumber(nextSerialNumber())
{}

Event::Event(EventType type, Vetra::EventSource* widget, bool isSyntheticAutoscroll)
    : Event(type, dynamic_cast<EventCanvas*>(widget), isSyntheticAutoscroll)
{}

Event::~Event() = default;

void Event::appendDetails(std::string&) const {}

std::string debugText(const Event& event)
{
    std::string text = nameOf(event.type());
    event.appendDetails(text);
    return text;
}

} // namespace Tova2
