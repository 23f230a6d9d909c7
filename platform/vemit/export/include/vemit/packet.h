#pragma once

#include "vemit/vemit_export.h"

#include <tuple>
#include <type_traits>

namespace Vemit {

namespace Detail {
class Hub;
}

/// Copies of the arguments of one emission.
template <class... Args>
using Payload = std::tuple<std::decay_t<Args>...>;

/// An emission that waits for its delivery. The emitter owns it.
class VEMIT_EXPORT Packet {
public:
    Packet() = default;
    Packet(const Packet&) = delete;
    Packet& operator=(const Packet&) = delete;
    virtual ~Packet();

    /// Calls the listeners that are connected now. Lets their exceptions through.
    virtual void deliver(Detail::Hub& hub) = 0;
};

namespace Detail {

/// Whether an argument means the same when it is delivered later from a copy: not if listeners are
/// to write to the caller's object, if it has no copy, or if the copy could be a slice.
template <class T>
inline constexpr bool canWait =
    std::is_constructible_v<std::decay_t<T>, const std::remove_reference_t<T>&> &&
    !(std::is_reference_v<T> &&
      (!std::is_const_v<std::remove_reference_t<T>> ||
       (std::is_polymorphic_v<std::decay_t<T>> && !std::is_final_v<std::decay_t<T>>)));

} // namespace Detail

} // namespace Vemit
