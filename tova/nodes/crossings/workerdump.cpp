#include "nodes/crossings/crossingstate.h"

#include "nodes/nodeimpl.h"

#include <map>

namespace Tova2 {

namespace {

using Table = std::multimap<double, const PathSegment*>;

constexpr const char* kRule = "--------------------\n";

void print(std::ostream& out, const WeakRef& ref)
{
    if (const NodeImpl* const node = ref.getImpl())
        out << node->typeName() << ' ' << static_cast<const void*>(node);
    else
        out << "(dead)";
}

void print(std::ostream& out, const CrossingNode& node, const PathSegment& segment)
{
    out << '(' << segment.p1.x << ", " << segment.p1.y << ") - (" << segment.p2.x << ", "
        << segment.p2.y << ") z " << segment.parentZ << " / " << segment.z << " index "
        << segment.segmentIndex << " level " << segment.changeLevel << " of ";
    print(out, node.node);
}

void print(std::ostream& out, const char* title, const Table& table,
           const PathIntersectionsWorker::State& state)
{
    out << title << table.size() << '\n';
    for (const auto& [x, segment] : table) {
        out << "    " << x << " -> ";
        print(out, state.nodes[segment->node], *segment);
        out << '\n';
    }
}

} // namespace

void PathIntersectionsWorker::dumpChangeLevels(std::ostream& out) const
{
    out << kRule << "NODE CHANGE LEVELS " << m_state->slots.size() << " / "
        << m_state->slots.bucket_count() << '\n';
    for (const auto& [node, slot] : m_state->slots) {
        out << "    ";
        print(out, node);
        out << " -> " << m_state->nodes[slot].changeLevel << '\n';
    }
    out << kRule;
}

void PathIntersectionsWorker::dumpTables(std::ostream& out) const
{
    Table verticals, starts, ends;
    for (std::size_t i = 0; i < m_state->segments.size(); ++i) {
        const PathSegment& segment = m_state->segments[i];
        if (segment.isStale)
            continue;
        if (!segment.isHorizontal()) {
            verticals.emplace(segment.p1.x, &segment);
            continue;
        }
        starts.emplace(segment.p1.x, &segment);
        ends.emplace(segment.p2.x, &segment);
    }
    out << kRule;
    print(out, "VERTICALS ", verticals, *m_state);
    print(out, "START EVENTS ", starts, *m_state);
    print(out, "END EVENTS ", ends, *m_state);
    out << kRule;
}

} // namespace Tova2
