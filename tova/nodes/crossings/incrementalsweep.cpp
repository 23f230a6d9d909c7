// Brings the crossings up to date when few pieces have changed since the last whole pass: each
// is compared with those of the index in the range between its ends, and with each newer one.
// What is found is sorted by node; then the list of every node that this concerns is written
// anew, behind all lists: what it had, without the pieces of changed nodes, merged with what is
// new. Last of all the nodes turn to their new lists. O(c n + k) for c changed pieces of n, and
// k pairs in the lists; of our own making, since a drag changes few pieces and a scan of packed
// arrays runs at the speed of memory.
#include "nodes/crossings/incrementalsweep.h"

#include "nodes/crossings/slicedloop.h"

#include <algorithm>

namespace Tova2 {

namespace {

constexpr std::size_t kBlock = 512; // small steps in one, so that the budget costs nothing
constexpr int kKeyPlaces = 7;       // that `keyOf` knows

/// Of pieces that are in no index; beyond it scans take more time than sorting all anew.
std::size_t looseLimit(std::size_t liveCount)
{
    return std::clamp<std::size_t>(liveCount / 64, 64, 512);
}

bool cross(const PathSegment& vertical, const PathSegment& horizontal)
{
    return horizontal.p1.x < vertical.p1.x && vertical.p1.x < horizontal.p2.x &&
           vertical.p1.y < horizontal.p1.y && horizontal.p1.y < vertical.p2.y;
}

/// Goes on at `place` with those whose `level` lies strictly between `low` and `high`.
template <class Piece, class Visit>
bool scan(const ScratchArray<Piece>& all, double Piece::*level, double low, double high,
          std::size_t& place, Host::TaskBudget& budget, Visit&& visit)
{
    const auto first = std::ranges::upper_bound(all, low, {}, level) - all.begin();
    const auto end = std::ranges::lower_bound(all, high, {}, level) - all.begin();
    place = std::max(place, static_cast<std::size_t>(first));
    return place >= static_cast<std::size_t>(end) ||
           sliced(place, end, kBlock, budget, [&](std::size_t from, std::size_t to) {
               for (std::size_t i = from; i < to; ++i)
                   visit(all[i]);
           });
}

} // namespace

const std::array<IncrementalSweep::Phase, 7> IncrementalSweep::kPhases{
    &IncrementalSweep::meet,    &IncrementalSweep::sortAdded, &IncrementalSweep::gatherOld,
    &IncrementalSweep::noteOld, &IncrementalSweep::noteAdded, &IncrementalSweep::rebuild,
    &IncrementalSweep::commit,
};

bool IncrementalSweep::isWorthwhile(State& state)
{
    constexpr std::size_t kSlack = 1024;
    const std::size_t limit = looseLimit(state.liveCount());
    if (state.loose.size() > 8 * limit || state.dirty.size() > limit ||
        state.segments.size() > 2 * state.liveCount() + kSlack ||
        state.pairs.size() > 2 * state.pairCount + kSlack)
        return false;
    std::erase_if(state.loose, [&](std::uint32_t id) { return state.segments[id].isStale; });
    return state.loose.size() <= limit;
}

IncrementalSweep::IncrementalSweep(State& state)
    : m_state(state), m_isNoted(state.nodes.size()), m_old(state)
{
    for (const std::uint32_t slot : state.dirty) {
        const TableBlock& block = state.nodes[slot].segments;
        for (std::uint32_t i = 0; i < block.count; ++i)
            m_segments.push_back(block.first + i);
    }
}

bool IncrementalSweep::run(Host::TaskBudget& budget)
{
    for (; m_phase < kPhases.size(); ++m_phase) {
        if (!(this->*kPhases[m_phase])(budget))
            return false;
        m_cursor = 0;
    }
    return true;
}

bool IncrementalSweep::meet(Host::TaskBudget& budget)
{
    while (m_cursor < m_segments.size()) {
        const std::uint32_t id = m_segments[m_cursor];
        const PathSegment& own = m_state.segments[id];
        if (!(own.isHorizontal() ? meetVerticals(own, id, budget)
                                 : meetHorizontals(own, id, budget)))
            return false;
        meetLoose(own, id);
        m_place = 0;
        ++m_cursor;
        if (budget.isSpentAfterStep())
            return false;
    }
    return true;
}

bool IncrementalSweep::meetVerticals(const PathSegment& own, std::uint32_t id,
                                     Host::TaskBudget& budget)
{
    using Vertical = CrossingIndex::Vertical;
    return scan(m_state.index.verticals, &Vertical::x, own.p1.x, own.p2.x, m_place, budget,
                [&, y = own.p1.y](const Vertical& v) {
                    if (v.y1 < y && y < v.y2)
                        add({v.segment, id});
                });
}

bool IncrementalSweep::meetHorizontals(const PathSegment& own, std::uint32_t id,
                                       Host::TaskBudget& budget)
{
    using Horizontal = CrossingIndex::Horizontal;
    return scan(m_state.index.horizontals, &Horizontal::y, own.p1.y, own.p2.y, m_place, budget,
                [&, x = own.p1.x](const Horizontal& h) {
                    if (h.left < x && x < h.right)
                        add({id, h.segment});
                });
}

void IncrementalSweep::meetLoose(const PathSegment& own, std::uint32_t id)
{
    for (const std::uint32_t otherId : m_state.loose) {
        const PathSegment& other = m_state.segments[otherId];
        if (other.isHorizontal() == own.isHorizontal())
            continue;
        // Two that have both changed meet once, when it is the vertical one's turn.
        if (!own.isHorizontal() && cross(own, other))
            add({id, otherId});
        else if (own.isHorizontal() && !m_state.nodeOf(other).isDirty && cross(other, own))
            add({otherId, id});
    }
}

void IncrementalSweep::add(const CrossingPair& pair)
{
    const PathSegment& v = m_state.segments[pair.vertical];
    const PathSegment& h = m_state.segments[pair.horizontal];
    if (v.isStale || h.isStale)
        return;
    m_added.push_back({v.node, pair});
    m_added.push_back({h.node, pair});
}

// By node, and as `State::comesBefore` within one: a stable sort for each part of the key, the
// least significant first.
bool IncrementalSweep::sortAdded(Host::TaskBudget& budget)
{
    if (m_keyPlace == 0 && m_order.size() == 0)
        m_order = ScratchArray<SortItem>(m_added.size());
    while (m_keyPlace < kKeyPlaces) {
        if (!m_sort) {
            if (!sliced(m_cursor, m_order.size(), kBlock, budget,
                        [this](std::size_t from, std::size_t to) {
                            for (std::size_t i = from; i < to; ++i) {
                                const auto one = m_keyPlace == 0 ? static_cast<std::uint32_t>(i)
                                                                 : m_order[i].value;
                                m_order[i] = {keyOf(m_added[one], m_keyPlace), one};
                            }
                        }))
                return false;
            m_sort.emplace(std::move(m_order));
        }
        if (!m_sort->run(budget))
            return false;
        m_order = std::move(m_sort->items());
        m_sort.reset();
        m_cursor = 0;
        ++m_keyPlace;
    }
    return true;
}

std::uint64_t IncrementalSweep::keyOf(const Added& added, int place) const
{
    const PathSegment& v = m_state.segments[added.pair.vertical];
    const PathSegment& h = m_state.segments[added.pair.horizontal];
    const PathSegment& piece = place < 3 ? h : v;
    switch (place) {
    case 0:
    case 3:
        return static_cast<std::uint64_t>(piece.segmentIndex);
    case 1:
    case 4:
        return m_state.nodeOf(piece).sortRank;
    case 2:
    case 5:
        return sortKey(piece.p1.x);
    default:
        return added.node;
    }
}

bool IncrementalSweep::gatherOld(Host::TaskBudget& budget)
{
    const auto& dirty = m_state.dirty;
    while (m_cursor < dirty.size()) {
        if (!m_old.add(dirty[m_cursor], budget))
            return false;
        note(dirty[m_cursor++]);
        if (budget.isSpentAfterStep())
            return false;
    }
    return true;
}

bool IncrementalSweep::noteOld(Host::TaskBudget& budget)
{
    return slicedEach(m_cursor, m_old.pairs().size(), budget, [this](std::size_t i) {
        note(m_state.segments[m_old.pairs()[i].vertical].node);
        note(m_state.segments[m_old.pairs()[i].horizontal].node);
    });
}

bool IncrementalSweep::noteAdded(Host::TaskBudget& budget)
{
    const bool isThrough = slicedEach(m_cursor, m_added.size(), budget,
                                      [this](std::size_t i) { note(m_added[i].node); });
    if (isThrough)
        m_rebuilt.reserve(m_nodes.size());
    return isThrough;
}

void IncrementalSweep::note(std::uint32_t node)
{
    if (m_isNoted[node])
        return;
    m_isNoted[node] = true;
    m_nodes.push_back(node);
}

bool IncrementalSweep::isObsolete(const CrossingPair& pair) const
{
    return m_state.nodeOf(m_state.segments[pair.vertical]).isDirty ||
           m_state.nodeOf(m_state.segments[pair.horizontal]).isDirty;
}

bool IncrementalSweep::rebuild(Host::TaskBudget& budget)
{
    while (m_cursor < m_nodes.size()) {
        const std::uint32_t node = m_nodes[m_cursor];
        if (m_rebuilt.size() == m_cursor)
            begin(node);
        if (!m_isGathered && !(m_isGathered = m_old.add(node, budget)))
            return false;
        if (!merge(budget))
            return false;
        ++m_cursor;
        if (budget.isSpentAfterStep())
            return false;
    }
    return true;
}

void IncrementalSweep::begin(std::uint32_t node)
{
    const auto added = std::ranges::equal_range(m_order, node, {}, &SortItem::key);
    m_addedCursor = static_cast<std::size_t>(added.begin() - m_order.begin());
    m_addedEnd = static_cast<std::size_t>(added.end() - m_order.begin());
    m_old.clear();
    m_oldCursor = 0;
    m_isGathered = false;
    m_state.markAffected(node);
    m_rebuilt.push_back({node, {static_cast<std::uint32_t>(m_state.pairs.size()), 0}, 0});
}

bool IncrementalSweep::merge(Host::TaskBudget& budget)
{
    while (m_oldCursor < m_old.pairs().size() || m_addedCursor < m_addedEnd) {
        takeNext();
        if (budget.isSpentAfterStep())
            return false;
    }
    m_state.checkSize(m_state.pairs.size());
    Rebuilt& rebuilt = m_rebuilt.back();
    rebuilt.pairs.count = static_cast<std::uint32_t>(m_state.pairs.size()) - rebuilt.pairs.first;
    rebuilt.oldCount = m_old.pairs().size();
    return true;
}

void IncrementalSweep::takeNext()
{
    const bool hasOld = m_oldCursor < m_old.pairs().size();
    const bool hasAdded = m_addedCursor < m_addedEnd;
    if (hasOld && isObsolete(m_old.pairs()[m_oldCursor]))
        ++m_oldCursor; // it no longer has its place in the order
    else if (hasOld && !(hasAdded && m_state.comesBefore(nextAdded(), m_old.pairs()[m_oldCursor])))
        m_state.pairs.push_back(m_old.pairs()[m_oldCursor++]);
    else
        m_state.pairs.push_back(m_added[m_order[m_addedCursor++].value].pair);
}

bool IncrementalSweep::commit(Host::TaskBudget& budget)
{
    const bool isThrough = slicedEach(m_cursor, m_rebuilt.size(), budget, [this](std::size_t i) {
        const Rebuilt& rebuilt = m_rebuilt[i];
        CrossingNode& node = m_state.nodes[rebuilt.node];
        node.pairsPass = m_state.wholePasses;
        node.pairs = rebuilt.pairs;
        m_state.pairCount += rebuilt.pairs.count;
        m_state.pairCount -= rebuilt.oldCount;
    });
    if (!isThrough)
        return false;
    for (const std::uint32_t slot : m_state.dirty)
        m_state.nodes[slot].isDirty = false;
    m_state.dirty.clear();
    return true;
}

} // namespace Tova2
