// Finds where horizontal and vertical pieces cross. A line sweeps from left to right over the
// verticals; horizontals that it meets are active, each a bit at its place in the order by y, so
// that a vertical finds those between its ends as neighbours. O(n + k) for n pieces and k
// crossings once the pieces are sorted, and one bit a vertical for each 4,096 rows between its
// ends; after Bentley and Ottmann 1979, without their general lines, with bits in place of their
// balanced tree. Phases: build the tables; sweep, which leaves for each vertical the rows that
// it crosses; lay out lists a row, and turn the others round into them; commit; renumber the
// nodes' pieces; mark all nodes to be published; clean; discard the old tables.
#include "nodes/crossings/fullsweep.h"

#include "nodes/crossings/slicedloop.h"

#include <utility>

namespace Tova2 {

const std::array<FullSweep::Phase, 9> FullSweep::kPhases{
    &FullSweep::build,        &FullSweep::sweep,  &FullSweep::lay,
    &FullSweep::turn,         &FullSweep::commit, &FullSweep::renumber,
    &FullSweep::markAffected, &FullSweep::clean,  &FullSweep::discard,
};

FullSweep::FullSweep(State& state)
    : m_state(state)
    , m_builder(state)
    , m_tables(m_builder.tables())
    , m_index(m_tables.index)
    , m_active(m_index.horizontals.size())
{}

bool FullSweep::run(Host::TaskBudget& budget)
{
    for (; m_phase < kPhases.size(); ++m_phase) {
        if (!(this->*kPhases[m_phase])(budget))
            return false;
        m_cursor = 0;
    }
    return true;
}

bool FullSweep::sweep(Host::TaskBudget& budget)
{
    return slicedByWork(m_cursor, m_index.verticals.size(), budget, [this](std::size_t vertical) {
        return advanceTo(m_index.verticals[vertical].x) + meet(vertical);
    });
}

std::size_t FullSweep::advanceTo(double x)
{
    const std::size_t before = m_startCursor + m_endCursor;
    const auto &starts = m_tables.starts, &ends = m_tables.ends;
    // What starts or ends right at x is not active there.
    for (; m_startCursor < starts.size() && starts[m_startCursor].x < x; ++m_startCursor)
        m_active.insert(starts[m_startCursor].row);
    for (; m_endCursor < ends.size() && ends[m_endCursor].x <= x; ++m_endCursor)
        m_active.erase(ends[m_endCursor].row);
    return m_startCursor + m_endCursor - before;
}

std::size_t FullSweep::meet(std::size_t vertical)
{
    auto& met = m_index.met.values;
    const std::size_t before = met.size();
    const SweepTables::Reach& reach = m_tables.reaches[vertical];
    m_active.forEach(reach.first, reach.end, [&](std::size_t row) {
        met.push_back(static_cast<std::uint32_t>(row));
        ++m_index.meeting.ends[row];
    });
    m_state.checkSize(2 * met.size());
    m_index.met.ends[vertical] = static_cast<std::uint32_t>(met.size());
    return met.size() - before;
}

bool FullSweep::lay(Host::TaskBudget& budget)
{
    auto& [ends, values] = m_index.meeting;
    return slicedEach(m_cursor, ends.size(), budget, [&](std::size_t row) {
        const std::size_t begin = values.size();
        values.grow(begin + ends[row]);
        ends[row] = static_cast<std::uint32_t>(begin); // moves to the end as the list is filled
    });
}

bool FullSweep::turn(Host::TaskBudget& budget)
{
    return slicedByWork(m_cursor, m_index.verticals.size(), budget, [this](std::size_t vertical) {
        auto &met = m_index.met, &meeting = m_index.meeting;
        for (std::uint32_t i = met.begin(vertical); i < met.end(vertical); ++i)
            meeting.values[meeting.ends[met.values[i]]++] = static_cast<std::uint32_t>(vertical);
        return met.end(vertical) - met.begin(vertical);
    });
}

bool FullSweep::commit(Host::TaskBudget&)
{
    m_state.loose.clear();
    m_state.pairCount = 2 * m_index.met.values.size();
    ++m_state.wholePasses; // so that what is in `pairs` is void
    std::swap(m_state.pairs, m_oldPairs);
    std::swap(m_state.index, m_index);
    if (m_builder.isCompacting())
        std::swap(m_state.segments, m_tables.compacted);
    m_tables.order.insert(m_tables.order.end(), m_state.order.begin() + m_tables.orderSeen,
                          m_state.order.end());
    std::swap(m_state.order, m_tables.order);
    return true;
}

bool FullSweep::renumber(Host::TaskBudget& budget)
{
    const auto& blocks = m_tables.segmentBlocks;
    return slicedEach(m_cursor, m_state.nodes.size(), budget, [&](std::size_t slot) {
        CrossingNode& node = m_state.nodes[slot];
        if (slot < blocks.size())
            node.segments = blocks[slot];
        node.indexed = node.segments;
    });
}

bool FullSweep::markAffected(Host::TaskBudget& budget)
{
    return slicedEach(m_cursor, m_state.nodes.size(), budget, [this](std::size_t slot) {
        if (!m_state.nodes[slot].isFree())
            m_state.markAffected(static_cast<std::uint32_t>(slot));
    });
}

bool FullSweep::clean(Host::TaskBudget& budget)
{
    auto& dirty = m_state.dirty;
    const bool isThrough = slicedEach(m_cursor, dirty.size(), budget, [&](std::size_t i) {
        m_state.nodes[dirty[i]].isDirty = false;
    });
    if (isThrough)
        dirty.clear();
    return isThrough;
}

bool FullSweep::discard(Host::TaskBudget& budget)
{
    // Giving back what large tables took needs time as well. What was taken last goes first: else
    // the memory before it would go back to the system along with it, in one long step.
    while (m_oldPairs.freeSome() || m_tables.freeSome() || m_builder.freeSome()) {
        if (budget.isSpentAfterLongStep())
            return false;
    }
    return true;
}

} // namespace Tova2
