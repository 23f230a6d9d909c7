#pragma once

#include "vetra/vetra_export.h"

namespace Vetra {

/// The widget that an input event arrived on, or that a drag began in. It is only ever compared or
/// cast to what it is; events never own it.
class VETRA_EXPORT EventSource {
public:
    EventSource() = default;
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;
    virtual ~EventSource();
};

} // namespace Vetra
