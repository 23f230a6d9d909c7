#include "nodes/crossings/nodepairs.h"

#include "nodes/crossings/slicedloop.h"

#include <algorithm>

namespace Tova2 {

namespace {

constexpr std::size_t kFew = 4096; // are sorted in one step

} // namespace

void NodePairs::begin(std::uint32_t slot)
{
    const CrossingNode& node = m_state.nodes[slot];
    const bool isListed = m_state.hasOwnPairs(node);
    m_block = isListed ? node.pairs : node.indexed;
    m_phase = isListed ? &NodePairs::copy : &NodePairs::gather;
    m_cursor = 0;
    m_first = m_pairs.size();
    m_keys.clear();
}

bool NodePairs::add(std::uint32_t slot, Host::TaskBudget& budget)
{
    if (!m_phase)
        begin(slot);
    while (m_phase) {
        if (!(this->*m_phase)(budget))
            return false;
        m_cursor = 0;
    }
    return true;
}

bool NodePairs::copy(Host::TaskBudget& budget)
{
    if (!slicedEach(m_cursor, m_block.count, budget,
                    [this](std::size_t i) { m_pairs.push_back(m_state.pairs[m_block.first + i]); }))
        return false;
    m_phase = nullptr;
    return true;
}

bool NodePairs::gather(Host::TaskBudget& budget)
{
    if (!slicedByWork(m_cursor, m_block.count, budget,
                      [this](std::size_t i) { return gatherPiece(m_block.first + i); }))
        return false;
    m_phase = &NodePairs::sort;
    return true;
}

std::size_t NodePairs::gatherPiece(std::uint32_t segment)
{
    const CrossingIndex& index = m_state.index;
    const std::uint32_t place = index.places[segment];
    const bool isHorizontal = m_state.segments[segment].isHorizontal();
    const CrossingIndex::Lists& lists = isHorizontal ? index.meeting : index.met;
    const std::uint64_t own = isHorizontal ? index.horizontals[place].serial : place;
    for (std::uint32_t i = lists.begin(place); i < lists.end(place); ++i) {
        const std::uint64_t other = lists.values[i];
        m_keys.push_back(isHorizontal ? other << 32 | own
                                      : own << 32 | index.horizontals[other].serial);
    }
    return lists.end(place) - lists.begin(place);
}

bool NodePairs::sort(Host::TaskBudget& budget)
{
    if (m_keys.size() <= kFew) {
        std::ranges::sort(m_keys);
    } else {
        if (!m_sort) {
            ScratchArray<SortItem> items(m_keys.size());
            for (std::size_t i = 0; i < m_keys.size(); ++i)
                items[i] = {m_keys[i], 0};
            m_sort.emplace(std::move(items));
        }
        if (!m_sort->run(budget))
            return false;
        for (std::size_t i = 0; i < m_keys.size(); ++i)
            m_keys[i] = m_sort->items()[i].key;
        m_sort.reset();
    }
    m_phase = &NodePairs::convert;
    return true;
}

bool NodePairs::convert(Host::TaskBudget& budget)
{
    constexpr std::size_t kBlock = 512;
    m_pairs.resize(m_first + m_keys.size());
    const CrossingIndex& index = m_state.index;
    if (!sliced(m_cursor, m_keys.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
            for (std::size_t i = from; i < to; ++i)
                m_pairs[m_first + i] = {index.verticals[m_keys[i] >> 32].segment,
                                        index.segmentsBySerial[m_keys[i] & 0xffffffff]};
        }))
        return false;
    m_phase = nullptr;
    return true;
}

} // namespace Tova2
