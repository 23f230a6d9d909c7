#include "diagram.h"

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

constexpr double pageGap = 24;

/// Layouts print five digits; a control point this near to the chord is on it.
constexpr double straightTolerance = 0.05;

bool isNear(const Point& point, const Point& a, const Point& b)
{
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = std::hypot(dx, dy);
    if (length < straightTolerance)
        return std::hypot(point.x - a.x, point.y - a.y) < straightTolerance;
    const double across = std::abs((point.x - a.x) * dy - (point.y - a.y) * dx) / length;
    const double along = ((point.x - a.x) * dx + (point.y - a.y) * dy) / length;
    return across < straightTolerance && along > -straightTolerance &&
           along < length + straightTolerance;
}

/// Of the four points of a bezier piece.
bool isStraight(const Point* piece)
{
    return isNear(piece[1], piece[0], piece[3]) && isNear(piece[2], piece[0], piece[3]);
}

bool isUpright(const Point& a, const Point& b)
{
    return a.x == b.x || a.y == b.y;
}

/// Whether the way through `corner` is as good as straight. An upright piece must not come out
/// slanted, however little.
bool saysNothing(const Point& a, const Point& corner, const Point& b)
{
    return isNear(corner, a, b) &&
           (isUpright(a, b) || !(isUpright(a, corner) || isUpright(corner, b)));
}

/// Corners between two pieces of one direction.
void dropNeedless(Points& line)
{
    Points kept;
    for (const Point& point : line) {
        if (!kept.empty() && kept.back() == point)
            continue;
        if (kept.size() > 1 && saysNothing(kept[kept.size() - 2], kept.back(), point))
            kept.back() = point;
        else
            kept.push_back(point);
    }
    if (kept.size() == 1)
        kept.push_back(kept.front());
    line = std::move(kept);
}

void move(Points& points, const Point& by)
{
    for (Point& point : points)
        point = {point.x + by.x, point.y + by.y};
}

void move(std::vector<Figure>& figures, const Point& by)
{
    for (Figure& figure : figures) {
        move(figure.points, by);
        if (figure.fill && figure.fill->gradient) {
            GradientFill& gradient = *figure.fill->gradient;
            gradient.from = {gradient.from.x + by.x, gradient.from.y + by.y};
            gradient.to = {gradient.to.x + by.x, gradient.to.y + by.y};
        }
    }
}

void move(Ending& ending, const Point& by)
{
    move(ending.figures, by);
    ending.tip = {ending.tip.x + by.x, ending.tip.y + by.y};
}

void move(std::vector<TextPiece>& texts, const Point& by)
{
    for (TextPiece& text : texts)
        text.anchor = {text.anchor.x + by.x, text.anchor.y + by.y};
}

template <class T>
void append(std::vector<T>& to, std::vector<T>& from)
{
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

void shiftIndices(Diagram& diagram, int clusters, int blocks)
{
    for (Cluster& cluster : diagram.clusters)
        cluster.parent += cluster.parent < 0 ? 0 : clusters;
    for (Block& block : diagram.blocks)
        block.cluster += block.cluster < 0 ? 0 : clusters;
    for (Connector& connector : diagram.connectors) {
        connector.tail += connector.tail < 0 ? 0 : blocks;
        connector.head += connector.head < 0 ? 0 : blocks;
    }
}

} // namespace

bool isOpenLine(const Figure& figure)
{
    return (figure.outline == Outline::Polyline || figure.outline == Outline::Bezier) &&
           !figure.fill && figure.points.size() > 1;
}

Rect boxOf(const Points& points)
{
    if (points.empty())
        return {};
    Rect box{points.front().x, points.front().y, 0, 0};
    for (const Point& point : points)
        box = box.united({point.x, point.y, 0, 0});
    return box;
}

Figure straightened(Figure curve)
{
    if (curve.outline != Outline::Bezier || curve.points.size() < 4)
        return curve;
    Points corners{curve.points.front()};
    for (std::size_t i = 0; i + 3 < curve.points.size(); i += 3) {
        if (!isStraight(&curve.points[i]))
            return curve;
        corners.push_back(curve.points[i + 3]);
    }
    curve.outline = Outline::Polyline;
    curve.points = std::move(corners);
    return curve;
}

std::vector<Figure> splitIntoRuns(const Figure& curve)
{
    if (const Figure whole = straightened(curve); whole.outline != Outline::Bezier)
        return {whole};
    std::vector<Figure> runs;
    bool wasUpright = false;
    for (std::size_t i = 0; i + 3 < curve.points.size(); i += 3) {
        const Point* piece = &curve.points[i];
        const bool upright = isStraight(piece) && isUpright(piece[0], piece[3]);
        if (runs.empty() || upright != wasUpright)
            runs.push_back({Outline::Bezier, {piece[0]}, curve.fill, curve.line});
        runs.back().points.insert(runs.back().points.end(), piece + 1, piece + 4);
        wasUpright = upright;
    }
    for (Figure& run : runs)
        run = straightened(std::move(run));
    return runs;
}

Figure simplified(Figure curve)
{
    const bool curved = curve.outline == Outline::Bezier;
    curve = straightened(std::move(curve));
    if (curved && curve.outline == Outline::Polyline)
        dropNeedless(curve.points);
    return curve;
}

void lengthen(Figure& line, Point tip)
{
    Points& points = line.points;
    const Point end = points.back();
    // Upright pieces stay upright: a tip is rounded as points are.
    if (std::abs(tip.x - end.x) < straightTolerance)
        tip.x = end.x;
    if (std::abs(tip.y - end.y) < straightTolerance)
        tip.y = end.y;
    if (line.outline == Outline::Bezier)
        points.insert(points.end(), {end, tip});
    else if (points.size() > 1 && isNear(end, points[points.size() - 2], tip))
        points.pop_back();
    points.push_back(tip);
}

void translate(Drawing& drawing, const Point& by)
{
    move(drawing.figures, by);
    move(drawing.texts, by);
}

void translate(Diagram& diagram, const Point& by)
{
    diagram.bounds = diagram.bounds.translated(by);
    translate(diagram.page, by);
    for (Cluster& cluster : diagram.clusters) {
        cluster.frame = cluster.frame.translated(by);
        translate(cluster.drawing, by);
    }
    for (Block& block : diagram.blocks) {
        block.frame = block.frame.translated(by);
        translate(block.drawing, by);
    }
    for (Connector& connector : diagram.connectors) {
        move(connector.lines, by);
        for (std::optional<Ending>* ending : {&connector.tailEnding, &connector.headEnding})
            if (*ending)
                move(**ending, by);
        translate(connector.labels, by);
        translate(connector.endLabels, by);
    }
}

void appendBeside(Diagram& diagram, Diagram next)
{
    translate(next,
              {diagram.bounds.right() + pageGap - next.bounds.x, diagram.bounds.y - next.bounds.y});
    shiftIndices(next, static_cast<int>(diagram.clusters.size()),
                 static_cast<int>(diagram.blocks.size()));
    diagram.bounds = diagram.bounds.united(next.bounds);
    append(diagram.page.figures, next.page.figures);
    append(diagram.page.texts, next.page.texts);
    append(diagram.clusters, next.clusters);
    append(diagram.blocks, next.blocks);
    append(diagram.connectors, next.connectors);
}

} // namespace TovaView
