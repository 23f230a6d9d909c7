#pragma once

#include "tova/events/eventtype.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/eventsource.h"

#include <cstdint>
#include <string>

namespace Tova2 {

class EventCanvas;
class EventHandler;
class Scene;

/// One input on its way to the handlers. It owns neither scene nor canvas: keep an event only as
/// long as its delivery lasts. Copies keep the serial number, and whether they are consumed.
class TOVA_EXPORT Event {
public:
    virtual ~Event();

protected:
    /// Calls the operation of `handler` that fits the type; throws tova:events/UnrecognizedEvent
    /// for a type that the class does not carry.
    virtual void internalAccept(EventHandler& handler) = 0;

public:
    virtual const char* className() const noexcept = 0;

    /// Hands the event to `handler`, unless it is consumed.
    void accept(EventHandler& handler)
    {
        if (!m_isConsumed)
            internalAccept(handler);
    }
    /// From here on no handler sees the event; there is no way back.
    void consume() noexcept { m_isConsumed = true; }
    bool isConsumed() const noexcept { return m_isConsumed; }

    EventType type() const noexcept { return m_type; }
    /// Null for an event that did not arrive on a canvas, and once a handler has destroyed it.
    EventCanvas* canvas() const noexcept { return m_watch.isAlive() ? m_canvas : nullptr; }
    /// That the canvas showed when the event was made; null without a canvas.
    Scene* scene() const noexcept { return m_scene; }
    /// The first event of the process has 1, each new one the next number. Any thread.
    std::uint32_t serialNumber() const noexcept { return m_serialNumber; }
    /// Made up by the autoscroller, not by the user.
    bool isSyntheticAutoscrollEvent() const noexcept { return m_isSyntheticAutoscroll; }

protected:
    Event(EventType type, EventCanvas* canvas, bool isSyntheticAutoscroll = false);
    /// The canvas is `widget`, when that is one.
    Event(EventType type, Vetra::EventSource* widget, bool isSyntheticAutoscroll = false);
    Event(const Event&) = default;
    Event& operator=(const Event&) = default;

private:
    friend TOVA_EXPORT std::string debugText(const Event& event);
    /// Appends to the name of the type what distinguishes the class; nothing by default.
    virtual void appendDetails(std::string& text) const;

    Scene* m_scene;
    EventCanvas* m_canvas;
    Vetra::EventSource::Watch m_watch;
    bool m_isConsumed = false;
    EventType m_type;
    bool m_isSyntheticAutoscroll;
    std::uint32_t m_serialNumber;

    TOVA_BASE_TYPE("Tova2.Event");
};

/// One line for a log: the type, then what matters for the class.
TOVA_EXPORT std::string debugText(const Event& event);

} // namespace Tova2
