#include "routegrid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <queue>

namespace TovaView {
namespace {

constexpr double cornerCost = 30; ///< points of detour that a corner is worth
constexpr double sideCost = 1e-5; ///< decides between equals only
constexpr double infinite = std::numeric_limits<double>::infinity();

// Directions by number: right, down, left, up. The opposite one is two further on.
constexpr std::array<Point, 4> directions{{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};

int numberOf(const Point& direction)
{
    const auto found = std::find(directions.begin(), directions.end(), direction);
    return found == directions.end() ? 0 : static_cast<int>(found - directions.begin());
}

void tidy(std::vector<double>& lines)
{
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
}

int indexOf(const std::vector<double>& lines, double value)
{
    return static_cast<int>(std::lower_bound(lines.begin(), lines.end(), value) - lines.begin());
}

/// How much of the piece, which is upright, lies inside.
double lengthInside(const Rect& rect, const Point& a, const Point& b)
{
    const Rect piece = Rect::fromCorners(a, b);
    const double width = std::min(piece.right(), rect.right()) - std::max(piece.x, rect.x);
    const double height = std::min(piece.bottom(), rect.bottom()) - std::max(piece.y, rect.y);
    // On the border is outside.
    const bool isAcross = piece.y > rect.y && piece.y < rect.bottom();
    const bool isDown = piece.x > rect.x && piece.x < rect.right();
    if (piece.height == 0)
        return isAcross ? std::max(0.0, width) : 0;
    return isDown ? std::max(0.0, height) : 0;
}

} // namespace

/// Dijkstra's over the states "at this crossing of lines, heading there".
struct RouteGrid::Search {
    explicit Search(const RouteGrid& owner)
        : grid(owner)
        , columns(static_cast<int>(owner.m_xs.size()))
        , rows(static_cast<int>(owner.m_ys.size()))
        , costs(static_cast<std::size_t>(columns * rows * 4), infinite)
        , before(costs.size(), -1)
    {}

    int state(const Point& at, int direction) const
    {
        return (indexOf(grid.m_ys, at.y) * columns + indexOf(grid.m_xs, at.x)) * 4 + direction;
    }

    Point pointOf(int state) const
    {
        return {grid.m_xs[static_cast<std::size_t>(state / 4 % columns)],
                grid.m_ys[static_cast<std::size_t>(state / 4 / columns)]};
    }

    /// The state one line further on; -1 beyond the last line.
    int next(int from, int direction) const
    {
        const Point& step = directions[static_cast<std::size_t>(direction)];
        const int column = from / 4 % columns + static_cast<int>(step.x);
        const int row = from / 4 / columns + static_cast<int>(step.y);
        if (column < 0 || row < 0 || column >= columns || row >= rows)
            return -1;
        return (row * columns + column) * 4 + direction;
    }

    void reach(int to, double cost, int from)
    {
        if (cost >= costs[static_cast<std::size_t>(to)])
            return;
        costs[static_cast<std::size_t>(to)] = cost;
        before[static_cast<std::size_t>(to)] = from;
        open.push({cost, to});
    }

    void expand(int from, double cost)
    {
        for (int turn : {0, 1, 3}) {
            const int direction = (from % 4 + turn) % 4;
            if (const int to = next(from, direction); to >= 0)
                reach(to, cost + (turn ? cornerCost : 0) + grid.costOf(pointOf(from), pointOf(to)),
                      from);
        }
    }

    /// Arriving with a corner counts as a corner.
    void run(int start, int goal)
    {
        reach(start, 0, -1);
        while (!open.empty()) {
            const auto [cost, at] = open.top();
            open.pop();
            if (at == goal)
                return;
            if (cost > costs[static_cast<std::size_t>(at)])
                continue;
            if (at / 4 == goal / 4 && (at + 2) % 4 != goal % 4)
                reach(goal, cost + cornerCost, at);
            expand(at, cost);
        }
    }

    Points wayTo(int goal) const
    {
        Points way;
        for (int at = goal; at >= 0; at = before[static_cast<std::size_t>(at)]) {
            if (way.empty() || way.back() != pointOf(at))
                way.push_back(pointOf(at));
        }
        std::reverse(way.begin(), way.end());
        return way;
    }

    using Entry = std::pair<double, int>;
    const RouteGrid& grid;
    int columns, rows;
    std::vector<double> costs;
    std::vector<int> before;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
};

void RouteGrid::addLines(const Point& at)
{
    m_xs.push_back(at.x);
    m_ys.push_back(at.y);
}

double RouteGrid::costOf(const Point& a, const Point& b) const
{
    const double length = std::abs(b.x - a.x) + std::abs(b.y - a.y);
    const double aside = a.y == b.y ? std::abs(a.y - m_middle.y) : std::abs(a.x - m_middle.x);
    double cost = length * (1 + aside * sideCost);
    for (const Hindrance& hindrance : m_hindrances) {
        if (const double inside = lengthInside(hindrance.rect, a, b); inside > 0)
            cost += hindrance.entryCost + inside * hindrance.cost;
    }
    return cost;
}

Points RouteGrid::find(const Point& from, const Point& direction, const Point& to,
                       const Point& arrival)
{
    addLines(from);
    addLines(to);
    tidy(m_xs);
    tidy(m_ys);
    Search search(*this);
    const int goal = search.state(to, numberOf(arrival));
    search.run(search.state(from, numberOf(direction)), goal);
    return search.wayTo(goal);
}

} // namespace TovaView
