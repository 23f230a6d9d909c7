#include "crossings/crossingmodel.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace Tova2 {

namespace {

/// One piece, and which path it is of.
struct Piece {
    std::size_t path;
    int rank, index;
    double x1, y1, x2, y2, parentZ, z;

    auto precedence() const { return std::tuple(parentZ, z, index); }
    auto order() const { return std::tuple(x1, rank, index); }
};

bool areFinite(std::initializer_list<double> values)
{
    return std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

} // namespace

std::size_t CrossingModel::add(Points points, double z, double parentZ)
{
    ModelPath made;
    made.node.setOpacity(0.5); // makes the element
    made.ref = WeakRef(made.node);
    made.path = {std::move(points), parentZ, z};
    made.rank = ++m_lastRank;
    m_byRef[made.ref] = m_paths.size();
    m_paths.push_back(std::move(made));
    return m_paths.size() - 1;
}

void CrossingModel::putBack(std::size_t i)
{
    m_paths[i].isIn = true;
    m_paths[i].rank = ++m_lastRank;
}

void CrossingModel::kill(std::size_t i)
{
    m_paths[i].isIn = false;
    m_paths[i].node.release();
}

bool CrossingModel::describe(const WeakRef& node, CrossingPath& path)
{
    const ModelPath& found = m_paths[m_byRef.at(node)];
    path = found.path;
    return found.isVisible;
}

std::vector<PathIntersection> CrossingModel::crossingsOf(std::size_t wanted) const
{
    std::vector<Piece> horizontals, verticals;
    for (std::size_t i = 0; i < m_paths.size(); ++i) {
        const auto& [node, ref, path, isVisible, isIn, rank] = m_paths[i];
        for (std::size_t k = 0; isVisible && isIn && k + 1 < path.points.size(); ++k) {
            const auto &a = path.points[k], &b = path.points[k + 1];
            Piece piece{i,
                        rank,
                        static_cast<int>(k),
                        std::min(a.x, b.x),
                        std::min(a.y, b.y),
                        std::max(a.x, b.x),
                        std::max(a.y, b.y),
                        path.parentZ,
                        path.z};
            if (!areFinite({a.x, a.y, b.x, b.y, path.parentZ, path.z}))
                continue;
            if (a.y == b.y && a.x != b.x)
                horizontals.push_back(piece);
            else if (a.x == b.x)
                verticals.push_back(piece);
        }
    }
    const auto byOrder = [](const Piece& a, const Piece& b) { return a.order() < b.order(); };
    std::ranges::sort(horizontals, byOrder);
    std::ranges::sort(verticals, byOrder);
    std::vector<PathIntersection> records;
    for (const Piece& v : verticals) {
        for (const Piece& h : horizontals) {
            if (!(h.x1 < v.x1 && v.x1 < h.x2 && v.y1 < h.y1 && h.y1 < v.y2))
                continue;
            const bool horizontalWins = h.precedence() > v.precedence();
            const Piece& winner = horizontalWins ? h : v;
            const Piece& loser = horizontalWins ? v : h;
            const std::array<double, 4> clearance{h.y1 - v.y1, v.x1 - h.x1, v.y2 - h.y1,
                                                  h.x2 - v.x1};
            if (winner.path == wanted)
                records.push_back({v.x1, h.y1, 0, m_paths[loser.path].ref, clearance});
            if (loser.path == wanted)
                records.push_back({v.x1, h.y1, 1, m_paths[winner.path].ref, clearance});
        }
    }
    return records;
}

void PublishedCrossings::crossingsFound(PathIntersectionsUpdate&& update)
{
    ++updateCount;
    lastSize = update.items.size();
    for (auto& item : update.items)
        m_byNode[item.node] = *update.take(item);
    if (onFound)
        onFound();
}

} // namespace Tova2
