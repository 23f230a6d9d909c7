#pragma once

#include "scene/box.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

class NodeImpl;

/// The entries of a display list in their order: packed arrays, cut into blocks of slots that lie
/// anywhere in the arrays, and the order of the blocks.
///
/// An entry's slot is kept in its node's record. Whoever goes in moves the rest of one block at
/// most, a full one is halved; whoever leaves lets a hole until `tidy`. A list that was never
/// edited in its middle has full blocks one after the other, so a scan runs through plain arrays.
/// What an edit costs grows with the blocks only by the search for a block's place in their order,
/// four bytes each.
class EntryBlocks {
public:
    using Slot = std::uint32_t;
    static constexpr Slot kBlock = 64; ///< slots

    struct Entry {
        NodeImpl* node = nullptr;
        Box box;
        std::uint8_t flags = 0;
    };

    /// Those that nobody has struck out.
    std::size_t size() const { return m_size; }
    /// From the bottom up.
    std::span<const std::uint32_t> order() const { return m_order; }
    static Slot first(std::uint32_t block) { return block * kBlock; }
    Slot end(std::uint32_t block) const { return block * kBlock + m_used[block]; }
    /// Each entry of a block lies in it; it may be too large until `tidy` and `updateCommonBox`.
    const Box& commonBox(std::uint32_t block) const { return m_commonBoxes[block]; }

    /// False for a node of another list.
    bool holds(const NodeImpl& node) const;
    /// Null where one was struck out.
    NodeImpl* node(Slot slot) const { return m_nodes[slot]; }
    const Box& box(Slot slot) const { return m_boxes[slot]; }
    std::uint8_t flags(Slot slot) const { return m_flags[slot]; }
    void setFlags(Slot slot, std::uint8_t flags) { m_flags[slot] = flags; }
    void setBox(Slot slot, const Box& box) { m_boxes[slot] = box; }
    Entry entry(Slot slot) const { return {m_nodes[slot], m_boxes[slot], m_flags[slot]}; }

    Slot append(const Entry& entry);
    Slot insertBefore(Slot slot, const Entry& entry);
    Slot insertAfter(Slot slot, const Entry& entry);
    /// Leaves `flags` on the hole.
    void strikeOut(Slot slot, std::uint8_t flags) noexcept;
    void clear();

    /// The slot's block has changed. Going in and leaving do so as well.
    void touch(Slot slot);
    std::vector<std::uint32_t> takeTouched();
    void updateCommonBox(std::uint32_t block);
    /// Closes the holes of touched blocks, and joins blocks once most are half empty.
    void tidy();
    /// Where each block stands in the order.
    std::vector<std::uint32_t> ranks() const;

private:
    std::uint32_t addBlock(std::size_t rank);
    std::size_t rankOf(std::uint32_t block) const;
    Slot insertAt(std::uint32_t block, Slot index, const Entry& entry);
    std::uint32_t halve(std::uint32_t block);
    void put(Slot slot, const Entry& entry);
    void closeHoles(std::uint32_t block);
    void join();

    std::vector<Box> m_boxes;
    std::vector<NodeImpl*> m_nodes;
    std::vector<std::uint8_t> m_flags;
    // A block each
    std::vector<Box> m_commonBoxes;
    std::vector<std::uint8_t> m_used; ///< slots, with holes
    std::vector<std::uint8_t> m_isTouched;

    std::vector<std::uint32_t> m_order;
    std::vector<std::uint32_t> m_unused; ///< blocks that are in no order
    std::vector<std::uint32_t> m_touched;
    std::size_t m_size = 0;
};

} // namespace Tova2
