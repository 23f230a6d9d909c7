#include "scene/entryblocks.h"

#include "nodes/nodeimpl.h"

#include <algorithm>
#include <utility>

namespace Tova2 {

std::uint32_t EntryBlocks::addBlock(std::size_t rank)
{
    std::uint32_t block = 0;
    if (m_unused.empty()) {
        block = static_cast<std::uint32_t>(m_used.size());
        m_nodes.resize(m_nodes.size() + kBlock);
        m_boxes.resize(m_boxes.size() + kBlock);
        m_flags.resize(m_flags.size() + kBlock);
        m_commonBoxes.emplace_back();
        m_used.push_back(0);
        m_isTouched.push_back(false);
    } else {
        block = m_unused.back();
        m_unused.pop_back();
    }
    m_order.insert(m_order.begin() + static_cast<std::ptrdiff_t>(rank), block);
    return block;
}

std::size_t EntryBlocks::rankOf(std::uint32_t block) const
{
    return static_cast<std::size_t>(std::find(m_order.begin(), m_order.end(), block) -
                                    m_order.begin());
}

bool EntryBlocks::holds(const NodeImpl& node) const
{
    const Slot slot = node.sceneRecord().slot;
    return slot < m_nodes.size() && m_nodes[slot] == &node;
}

void EntryBlocks::put(Slot slot, const Entry& entry)
{
    m_nodes[slot] = entry.node;
    m_boxes[slot] = entry.box;
    m_flags[slot] = entry.flags;
    if (entry.node)
        entry.node->sceneRecord().slot = slot;
}

EntryBlocks::Slot EntryBlocks::append(const Entry& entry)
{
    if (m_order.empty() || m_used[m_order.back()] == kBlock)
        addBlock(m_order.size());
    return insertAt(m_order.back(), m_used[m_order.back()], entry);
}

EntryBlocks::Slot EntryBlocks::insertBefore(Slot slot, const Entry& entry)
{
    std::uint32_t block = slot / kBlock;
    Slot index = slot % kBlock;
    if (m_used[block] == kBlock) {
        const std::uint32_t upper = halve(block);
        if (index >= m_used[block]) {
            index -= m_used[block];
            block = upper;
        }
    }
    return insertAt(block, index, entry);
}

EntryBlocks::Slot EntryBlocks::insertAfter(Slot slot, const Entry& entry)
{
    if (slot % kBlock + 1 < kBlock) {
        if (m_used[slot / kBlock] < kBlock)
            return insertAt(slot / kBlock, slot % kBlock + 1, entry);
        return insertBefore(slot + 1, entry);
    }
    // Behind a full block, where runs go that fill one block after the other.
    const std::size_t rank = rankOf(slot / kBlock) + 1;
    if (rank == m_order.size() || m_used[m_order[rank]] == kBlock)
        addBlock(rank);
    return insertAt(m_order[rank], 0, entry);
}

/// The block must have room.
EntryBlocks::Slot EntryBlocks::insertAt(std::uint32_t block, Slot index, const Entry& entry)
{
    const Slot slot = first(block) + index;
    for (Slot at = end(block); at > slot; --at)
        put(at, this->entry(at - 1));
    ++m_used[block];
    ++m_size;
    put(slot, entry);
    touch(slot);
    return slot;
}

/// Gives the upper half to a new block, which it returns.
std::uint32_t EntryBlocks::halve(std::uint32_t block)
{
    const std::uint32_t upper = addBlock(rankOf(block) + 1);
    constexpr Slot kHalf = kBlock / 2;
    for (Slot i = 0; i < kBlock - kHalf; ++i)
        put(first(upper) + i, entry(first(block) + kHalf + i));
    m_used[block] = kHalf;
    m_used[upper] = kBlock - kHalf;
    touch(first(block));
    touch(first(upper));
    return upper;
}

void EntryBlocks::strikeOut(Slot slot, std::uint8_t flags) noexcept
{
    m_nodes[slot] = nullptr;
    m_boxes[slot] = Box::nowhere();
    m_flags[slot] = flags;
    --m_size;
    touch(slot);
}

void EntryBlocks::clear()
{
    *this = EntryBlocks();
}

void EntryBlocks::touch(Slot slot)
{
    const std::uint32_t block = slot / kBlock;
    if (!m_isTouched[block]) {
        m_isTouched[block] = true;
        m_touched.push_back(block);
    }
}

std::vector<std::uint32_t> EntryBlocks::takeTouched()
{
    for (const auto block : m_touched)
        m_isTouched[block] = false;
    return std::exchange(m_touched, {});
}

void EntryBlocks::updateCommonBox(std::uint32_t block)
{
    Box common;
    for (Slot slot = first(block); slot < end(block); ++slot)
        common.unite(m_boxes[slot]);
    m_commonBoxes[block] = common;
}

void EntryBlocks::closeHoles(std::uint32_t block)
{
    Slot to = first(block);
    for (Slot from = to; from < end(block); ++from) {
        if (!m_nodes[from])
            continue;
        if (to != from)
            put(to, entry(from));
        ++to;
    }
    m_used[block] = static_cast<std::uint8_t>(to - first(block));
}

void EntryBlocks::tidy()
{
    bool isAnyEmpty = false;
    for (const auto block : m_touched) {
        closeHoles(block);
        isAnyEmpty |= m_used[block] == 0;
    }
    if (isAnyEmpty) {
        std::erase_if(m_order, [this](std::uint32_t block) {
            if (m_used[block] == 0)
                m_unused.push_back(block);
            return m_used[block] == 0;
        });
    }
    constexpr std::size_t kAtLeast = 16; // for small lists the blocks are few anyway
    if (m_order.size() > 2 * (m_size / kBlock) + kAtLeast)
        join();
}

void EntryBlocks::join()
{
    const EntryBlocks old = std::exchange(*this, EntryBlocks());
    m_nodes.reserve(old.m_size + kBlock);
    m_boxes.reserve(old.m_size + kBlock);
    m_flags.reserve(old.m_size + kBlock);
    for (const auto block : old.m_order) {
        for (Slot slot = first(block); slot < old.end(block); ++slot) {
            if (old.m_nodes[slot])
                append(old.entry(slot));
        }
    }
}

std::vector<std::uint32_t> EntryBlocks::ranks() const
{
    std::vector<std::uint32_t> ranks(m_used.size());
    for (std::size_t rank = 0; rank < m_order.size(); ++rank)
        ranks[m_order[rank]] = static_cast<std::uint32_t>(rank);
    return ranks;
}

} // namespace Tova2
