#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/referenced.h"

namespace Tova2 {

class Node;

/// Milliseconds of rest before a tool tip shows.
inline constexpr int DEFAULT_TOOLTIP_TIMEIN = 500;
/// Milliseconds that a tool tip stays.
inline constexpr int DEFAULT_TOOLTIP_TIMEOUT = 10000;

/// How long the pointer rests on a node before its tool tip shows, and how long that stays, in
/// milliseconds. Counted: the scenes that it is registered with hold references.
class TOVA_EXPORT RolloverFactory : public Vetra::Referenced {
public:
    virtual int timeIn(const Node& node);
    virtual int timeOut(const Node& node);

protected:
    ~RolloverFactory() override;

    TOVA_BASE_TYPE("Tova2.RolloverFactory");
};

} // namespace Tova2
