#pragma once

#include <cstdint>

namespace Tova2 {

class NodeImpl;

/// The table that a handle's small value indexes. Slot 0 stays empty.
namespace NodeFactories {

using Factory = NodeImpl* (*)();

/// The next free slot's index; 0 when the table is full. A node class registers once, in a
/// function-local static.
std::uint64_t add(Factory factory);
/// Null for an index out of range, an empty slot, or a factory that makes nothing.
NodeImpl* make(std::uint64_t index);

} // namespace NodeFactories

} // namespace Tova2
