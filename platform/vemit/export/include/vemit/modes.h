#pragma once

namespace Vemit {

/// When an emission reaches the listeners: the higher the value, the sooner.
enum class SendMode : unsigned {
    /// It waits as a packet until `Emitter::flush`.
    Held = 0,
    /// At once; one made from inside a callback of the same emitter waits until the running one has
    /// reached all its listeners, so that everybody hears emissions in the order they were made.
    Queued = 1,
    /// Always before `Emitter::send` returns; one made from inside a callback runs whole in there,
    /// before the outer one goes on.
    Immediate = 2
};

/// Which emissions are dropped. One that nobody listens to is forgotten in either mode.
enum class DropMode : unsigned {
    /// None.
    Never = 0,
    /// One made while an earlier one of the same emitter is being delivered or waits. It ends
    /// feedback between listeners, and merges held emissions into the first.
    WhileBusy = 1
};

} // namespace Vemit
