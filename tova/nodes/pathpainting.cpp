#include "nodes/crossings/crossingoutline.h"
#include "nodes/paintcontext.h"
#include "nodes/pathcache.h"
#include "nodes/pen.h"
#include "nodes/scenelink.h"
#include "nodes/values.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace Tova2 {

namespace {

/// Above so many points those that no pixel tells apart are left out.
constexpr std::size_t kManyPoints = 4096;
constexpr double kIndistinctPixels = 0.25;
/// As many points the toolkit fills at once; its time grows faster than their number.
constexpr std::size_t kSlice = 512;
/// Beyond it, even dashed curves are drawn in parts.
constexpr std::size_t kManyPieces = 50'000;

/// A stretch of neighbouring points that lie in a strip too narrow to tell apart.
class Strip {
public:
    Strip(std::size_t index, const QPointF& device)
        : m_left(device.x())
        , m_right(m_left)
        , m_top(device.y())
        , m_bottom(m_top)
        , m_first(index)
        , m_extremes{index, index, index, index}
    {}
    /// False when the point lies outside; the strip is complete then.
    bool add(std::size_t index, const QPointF& device)
    {
        const double left = std::min(m_left, device.x()), right = std::max(m_right, device.x());
        const double top = std::min(m_top, device.y()), bottom = std::max(m_bottom, device.y());
        if (right - left > kIndistinctPixels && bottom - top > kIndistinctPixels)
            return false;
        const bool isFarther[] = {left<m_left, right> m_right, top<m_top, bottom> m_bottom};
        for (std::size_t side = 0; side < 4; ++side) {
            if (isFarther[side])
                m_extremes[side] = index;
        }
        m_left = left, m_right = right, m_top = top, m_bottom = bottom;
        return true;
    }
    /// Of the first point, the outermost ones and the last.
    std::array<std::size_t, 6> kept(std::size_t last) const
    {
        std::array<std::size_t, 6> all{m_first,       m_extremes[0], m_extremes[1],
                                       m_extremes[2], m_extremes[3], last};
        std::sort(all.begin(), all.end());
        return all;
    }

private:
    double m_left, m_right, m_top, m_bottom;
    std::size_t m_first;
    std::array<std::size_t, 4> m_extremes;
};

/// Leaves out what no pixel tells apart: a path zoomed out far has thousands of points to a pixel.
std::vector<QPointF> thinned(const std::vector<QPointF>& points, const QTransform& toDevice)
{
    std::vector<QPointF> result;
    Strip strip(0, toDevice.map(points[0]));
    const auto close = [&](std::size_t last) {
        std::size_t before = points.size();
        for (const std::size_t index : strip.kept(last)) {
            if (index != before)
                result.push_back(points[index]);
            before = index;
        }
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        const QPointF device = toDevice.map(points[i]);
        if (strip.add(i, device))
            continue;
        close(i - 1);
        strip = Strip(i, device);
    }
    close(points.size() - 1);
    return result;
}

/// The part of the line inside the rectangle; null when there is none.
QLineF clipped(const QLineF& line, const QRectF& rect)
{
    double first = 0, last = 1;
    const auto cut = [&](double from, double step, double least, double most) {
        if (step == 0)
            return from >= least && from <= most;
        const double a = (least - from) / step, b = (most - from) / step;
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
        return first < last;
    };
    // Halved, since the distance of two finite numbers may not be one.
    const double dx = 2 * (line.x2() / 2 - line.x1() / 2), dy = 2 * (line.y2() / 2 - line.y1() / 2);
    if (!std::isfinite(dx) || !std::isfinite(dy) ||
        !cut(line.x1(), dx, rect.left(), rect.right()) ||
        !cut(line.y1(), dy, rect.top(), rect.bottom()))
        return {};
    return {line.x1() + first * dx, line.y1() + first * dy, line.x1() + last * dx,
            line.y1() + last * dy};
}

} // namespace

/// One paint of a path. Of a long path only the chunks that are exposed are drawn.
class PathNodeImpl::Painting {
public:
    Painting(const PathNodeImpl& node, PaintContext& context)
        : m_node(node), m_context(context), m_flat(node.flat())
    {}

    void run();

private:
    struct Stretch {
        std::size_t first, count; ///< within the run
        double lengthBefore;      ///< for dashes
    };

    void findExposed();
    bool isSeen(std::size_t piece) const
    {
        return m_flat.chunks.empty() ||
               m_flat.chunks[piece / FlatChunk::kPieces].touches(m_exposed);
    }
    bool isAllSeen() const;
    void setStyle(const Stroke& stroke, bool isFilled);
    void drawLoop(const Stroke& stroke);
    void drawRun(const Run& run);
    void drawSeenParts(const Run& run);
    bool drawCrossings(const Run& run);
    void drawPin(const PinMark& pin, const Stroke& stroke);
    std::vector<Stretch> seenParts(const Run& run) const;
    void drawAtOnce(const Run& run, const std::vector<Stretch>& stretches);
    void drawStretch(const Run& run, const Stretch& stretch);
    void drawInSlices(std::span<const QPointF> points);
    QPainterPath curvesOf(const Run& run, const Stretch& stretch) const;
    std::vector<QPointF> pointsOf(const Run& run, const Stretch& stretch) const;
    void drawFarLines();
    void setDashOffset(double length);

    const PathNodeImpl& m_node;
    PaintContext& m_context;
    FlatPath m_flat;
    QRectF m_exposed; ///< in the node's coordinates, with room for strokes
    double m_scale = 1;
};

void PathNodeImpl::paintNode(PaintContext& context) const
{
    Painting(*this, context).run();
}

void PathNodeImpl::Painting::run()
{
    if (m_flat.pieceCount() == 0)
        return;
    const bool isExact = m_node.isExact();
    if (!m_flat.chunks.empty() || !isExact)
        findExposed();
    if (!isExact)
        return drawFarLines();
    const Runs runs = m_node.runsOf(m_flat);
    if (runs.size() == 1 && runs[0].isLoop && isAllSeen() && !m_node.hasCrossings())
        return drawLoop(*runs[0].stroke);
    if (m_node.isFilled())
        drawLoop(Stroke::NoStroke());
    for (const Run& part : runs)
        drawRun(part);
}

void PathNodeImpl::Painting::findExposed()
{
    const QTransform toDevice = m_context.nodeToDevice();
    m_scale = std::sqrt(std::abs(toDevice.determinant()));
    const QRectF exposed = Vetra::toQt(m_context.options().exposed);
    bool isInvertible = false;
    const QTransform toLocal = toDevice.inverted(&isInvertible);
    if (exposed.isEmpty() || !isInvertible) {
        m_exposed = m_node.strokedRect();
        return;
    }
    double widest = m_node.drawStyle().stroke().width(m_context.options().viewScale);
    for (const Stroke& stroke : m_node.strokes())
        widest = std::max(widest, stroke.width(m_context.options().viewScale));
    // The longest mitre is a little more than two widths.
    const double around = 2.5 * widest + m_node.slack() + 2 / m_scale;
    m_exposed = toLocal.mapRect(m_context.view().mapRect(exposed))
                    .adjusted(-around, -around, around, around);
}

bool PathNodeImpl::Painting::isAllSeen() const
{
    return std::all_of(m_flat.chunks.begin(), m_flat.chunks.end(),
                       [this](const FlatChunk& chunk) { return chunk.touches(m_exposed); });
}

void PathNodeImpl::Painting::setStyle(const Stroke& stroke, bool isFilled)
{
    const DrawStyle& own = m_node.drawStyle();
    const bool isUnfilled = own.fill().style() == FillStyle::NoFill;
    if (stroke == own.stroke() && (isFilled || isUnfilled))
        return m_context.setStyle(own);
    DrawStyle style = own;
    style.setStroke(stroke);
    if (!isFilled)
        style.setFill(Fill::NoFill());
    m_context.setStyle(style);
}

void PathNodeImpl::Painting::drawLoop(const Stroke& stroke)
{
    if (stroke.isNoStroke() && !m_node.isFilled())
        return;
    setStyle(stroke, true);
    if (m_node.isCurved())
        return m_context.drawPath(m_node.wholePath());
    std::vector<QPointF> few;
    std::span<const QPointF> points = m_flat.points;
    if (points.size() > kManyPoints) {
        few = thinned({points.begin(), points.end()}, m_context.nodeToDevice());
        points = few;
    }
    m_context.drawPolygon(points);
}

void PathNodeImpl::Painting::drawRun(const Run& run)
{
    if (run.stroke->isNoStroke())
        return;
    setStyle(*run.stroke, false);
    // The dashes of what lies before a part of a curve are known only nearly.
    const bool isSolid = run.stroke->style() == StrokeStyle::SolidLine;
    const bool isDashedCurve = m_node.isCurved() && !isSolid && run.count < kManyPieces;
    if (drawCrossings(run))
        return;
    if (m_flat.chunks.empty() || isDashedCurve)
        drawStretch(run, {0, run.count, 0});
    else
        drawSeenParts(run);
}

bool PathNodeImpl::Painting::drawCrossings(const Run& run)
{
    CrossingOutline outline;
    const Range range = m_node.segmentsOf(m_flat, run.first, run.count);
    if (!m_node.buildCrossings(range, m_context.options().viewScale, outline))
        return false;
    m_context.drawPath(outline.main);
    if (!outline.thinHops.isEmpty())
        m_context.drawPath(outline.thinHops);
    for (const PinMark& pin : outline.pins)
        drawPin(pin, *run.stroke);
    return true;
}

// The line fades into the paper on its way to the line that it crosses, and out of it on the other
// side; the crossed line itself is left alone.
void PathNodeImpl::Painting::drawPin(const PinMark& pin, const Stroke& stroke)
{
    SceneLink* const scene = m_node.sceneLink();
    if (!scene || isSame(pin.start, pin.end))
        return;
    QPainter& painter = m_context.localPainter();
    QColor paper = scene->paperColor(), clear = paper;
    clear.setAlpha(0);
    NodeImpl* const crossed = pin.crossed.getImpl();
    const double clearing =
        crossed ? crossed->drawStyle().stroke().width(m_context.options().viewScale) : 0;
    const double length = QLineF(pin.start, pin.end).length();
    const double middle = std::min(clearing / length / 2, 0.5);
    QLinearGradient fade(pin.start, pin.end);
    fade.setColorAt(0, clear);
    fade.setColorAt(0.5 - middle, paper);
    fade.setColorAt(0.5 + middle, paper);
    fade.setColorAt(1, clear);
    QPen pen = painter.pen();
    const double width =
        stroke.width(m_context.options().viewScale) + 1 / m_context.options().viewScale;
    painter.setPen(QPen(QBrush(fade), width, Qt::SolidLine, Qt::FlatCap));
    const QPointF step = pin.end - pin.start;
    painter.drawLine(QLineF(pin.start, pin.start + step * (0.5 - middle)));
    painter.drawLine(QLineF(pin.start + step * (0.5 + middle), pin.end));
    m_context.forgetPainterState();
}

void PathNodeImpl::Painting::drawSeenParts(const Run& run)
{
    Run part = run;
    // A loop that is not seen whole begins with a chunk that is not seen.
    const std::size_t pieces = m_flat.pieceCount();
    while (run.isLoop && part.first < pieces && isSeen(part.first))
        part.first += FlatChunk::kPieces;
    part.first = part.first < pieces ? part.first : 0;
    const auto stretches = seenParts(part);
    // Drawn one by one they would show where they cross.
    if (stretches.size() > 1 && run.stroke->style() == StrokeStyle::SolidLine)
        return drawAtOnce(part, stretches);
    for (const Stretch& stretch : stretches)
        drawStretch(part, stretch);
}

std::vector<PathNodeImpl::Painting::Stretch> PathNodeImpl::Painting::seenParts(const Run& run) const
{
    const bool isDashed = run.stroke->style() != StrokeStyle::SolidLine;
    std::vector<Stretch> stretches;
    double length = 0;
    bool wasSeen = false;
    for (std::size_t i = 0; i < run.count; ++i) {
        const std::size_t piece = (run.first + i) % m_flat.pieceCount();
        const bool isNowSeen = isSeen(piece);
        if (!isNowSeen && !isDashed) {
            // On to the next chunk, which may be the one around the first point.
            const std::size_t rest = FlatChunk::kPieces - piece % FlatChunk::kPieces;
            i += std::min(rest, m_flat.pieceCount() - piece) - 1;
        }
        if (isNowSeen && !wasSeen)
            stretches.push_back({i, 0, length});
        if (isNowSeen)
            ++stretches.back().count;
        wasSeen = isNowSeen;
        if (isDashed)
            length += QLineF(m_flat.start(piece), m_flat.end(piece)).length();
    }
    return stretches;
}

void PathNodeImpl::Painting::drawAtOnce(const Run& run, const std::vector<Stretch>& stretches)
{
    QPainterPath path;
    for (const Stretch& stretch : stretches) {
        if (m_node.isCurved()) {
            path.addPath(curvesOf(run, stretch));
            continue;
        }
        const auto points = pointsOf(run, stretch);
        path.moveTo(points.front());
        for (const QPointF& p : points)
            path.lineTo(p);
    }
    m_context.drawPath(path);
}

void PathNodeImpl::Painting::drawStretch(const Run& run, const Stretch& stretch)
{
    const bool isShifted =
        stretch.lengthBefore > 0 && run.stroke->style() != StrokeStyle::SolidLine;
    if (isShifted)
        setDashOffset(stretch.lengthBefore);
    const std::size_t pieces = m_flat.pieceCount(), first = (run.first + stretch.first) % pieces;
    if (m_node.isCurved())
        m_context.drawPath(stretch.count == pieces && !m_flat.isClosed ? m_node.wholePath()
                                                                       : curvesOf(run, stretch));
    else if (first + stretch.count < m_flat.points.size() && stretch.count < kManyPoints)
        m_context.drawPolyline(m_flat.points.subspan(first, stretch.count + 1));
    else if (run.stroke->style() != StrokeStyle::SolidLine || stretch.count < kManyPoints)
        m_context.drawPolyline(pointsOf(run, stretch));
    else
        drawInSlices(pointsOf(run, stretch));
    if (isShifted)
        m_context.forgetPainterState();
}

void PathNodeImpl::Painting::drawInSlices(std::span<const QPointF> points)
{
    // Two slices meet without a join, which nobody sees among so many points.
    for (std::size_t first = 0; first + 1 < points.size(); first += kSlice)
        m_context.drawPolyline(points.subspan(first, std::min(kSlice + 1, points.size() - first)));
}

// The painter is left with a pen that the context does not know until its state is forgotten.
void PathNodeImpl::Painting::setDashOffset(double length)
{
    QPainter& painter = m_context.localPainter();
    QPen pen = painter.pen();
    const double width = pen.isCosmetic() ? 1 / m_scale : pen.widthF();
    pen.setDashOffset(std::fmod(length / width, 1e6));
    painter.setPen(pen);
}

QPainterPath PathNodeImpl::Painting::curvesOf(const Run& run, const Stretch& stretch) const
{
    const std::size_t pieces = m_flat.pieceCount();
    const Range all = m_node.segmentsOf(m_flat, run.first, run.count);
    const std::size_t first = run.first + stretch.first;
    Range seen = m_node.segmentsOf(m_flat, first % pieces, stretch.count);
    if (first >= pieces)
        seen = {seen.first + m_node.segmentCount(), seen.last + m_node.segmentCount()};
    // A neighbour on each side, so that nothing ends where something is seen.
    seen.first = seen.first > all.first ? seen.first - 1 : all.first;
    seen.last = std::min(seen.last + 1, all.last);
    return m_node.pathOf(seen);
}

std::vector<QPointF> PathNodeImpl::Painting::pointsOf(const Run& run, const Stretch& stretch) const
{
    std::vector<QPointF> points;
    points.reserve(stretch.count + 1);
    for (std::size_t i = 0; i <= stretch.count; ++i)
        points.push_back(m_flat.points[(run.first + stretch.first + i) % m_flat.points.size()]);
    if (points.size() > kManyPoints && run.stroke->style() == StrokeStyle::SolidLine)
        return thinned(points, m_context.nodeToDevice());
    return points;
}

// Where the toolkit's own arithmetic fails, it is given only what is seen, line by line.
void PathNodeImpl::Painting::drawFarLines()
{
    constexpr double far = Limits::pathCoordinate;
    m_exposed = m_exposed.intersected(QRectF(-far, -far, 2 * far, 2 * far));
    for (std::size_t piece = 0; piece < m_flat.pieceCount(); ++piece) {
        const Stroke& stroke = m_node.strokeOf(m_flat.segmentOf(piece));
        const QLineF line = clipped({m_flat.start(piece), m_flat.end(piece)}, m_exposed);
        if (stroke.isNoStroke() || line.isNull() || !isSeen(piece))
            continue;
        setStyle(stroke, false);
        m_context.drawLine(line);
    }
}

} // namespace Tova2
