#pragma once

#include "vetra/referenced.h"
#include "vetra/vetra_export.h"

namespace Vetra {

/// The widget that an input event arrived on, or that a drag began in. It is only ever compared or
/// cast to what it is; events never own it.
class VETRA_EXPORT EventSource {
public:
    /// Tells whether a source still lives, for who may be called back in between. Copies cost no
    /// memory.
    class VETRA_EXPORT Watch {
    public:
        Watch() noexcept = default;
        explicit Watch(const EventSource* source);
        /// False as well for a watch over none.
        bool isAlive() const noexcept { return m_life && m_life->isGoingOn; }

    private:
        friend class EventSource;
        struct Life : Referenced {
            bool isGoingOn = true;
        };
        Holder<Life> m_life;
    };

    EventSource() = default;
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;
    virtual ~EventSource();

private:
    mutable Watch m_own; // made with the first watch
};

} // namespace Vetra
