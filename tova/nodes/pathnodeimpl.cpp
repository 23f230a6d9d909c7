#include "nodes/pathnodeimpl.h"

#include "nodes/effects/silhouettekey.h"
#include "nodes/effects/silhouettestroke.h"
#include "nodes/effects/silhouettestyle.h"
#include "nodes/pathcache.h"
#include "nodes/pathcounters.h"
#include "nodes/pen.h"
#include "nodes/segmenttests.h"
#include "nodes/values.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QPainterPathStroker>

namespace Tova2 {

namespace {

/// Beyond it, regions answer from the rectangle: the toolkit's operations take too long.
constexpr std::size_t kMostOutlinePieces = 10'000;

bool encloses(const QRectF& rect, const QPointF& p)
{
    return p.x() >= rect.left() && p.x() <= rect.right() && p.y() >= rect.top() &&
           p.y() <= rect.bottom();
}

QPainterPath strokeAlong(const QPainterPath& path, const Stroke& stroke)
{
    QPainterPathStroker stroker(penOf(stroke, 1.0));
    // What lies between dashes is part of the line.
    stroker.setDashPattern(Qt::SolidLine);
    stroker.setWidth(2 * halfStroke(stroke));
    return stroker.createStroke(path);
}

} // namespace

PathNodeImpl::PathNodeImpl() = default;
PathNodeImpl::~PathNodeImpl() = default;

const std::vector<Stroke>& PathNodeImpl::strokes() const
{
    static const std::vector<Stroke> none;
    return m_strokes ? m_strokes->list : none;
}

void PathNodeImpl::setStrokes(const std::vector<Stroke>& strokes)
{
    if (strokes == this->strokes())
        return;
    m_strokes = strokes.empty() ? nullptr : std::make_unique<OwnStrokes>(OwnStrokes{strokes});
    reportChange(ChangeLevel::Geometry);
}

const Stroke& PathNodeImpl::strokeOf(std::size_t segment) const
{
    return m_strokes && segment < m_strokes->list.size() ? m_strokes->list[segment]
                                                         : drawStyle().stroke();
}

std::size_t PathNodeImpl::segmentCount() const
{
    const std::size_t count = vertexCount();
    return count < 2 ? 0 : count - (isClosed() ? 0 : 1);
}

void PathNodeImpl::dropCaches(ChangeLevel level)
{
    if (level != ChangeLevel::Geometry)
        return;
    m_cache.reset();
    m_extent.reach = -1;
}

PathNodeImpl::Cache& PathNodeImpl::cache() const
{
    if (m_cache)
        return *m_cache;
    PathCounters::outlinesBuilt().increment();
    auto made = std::make_unique<Cache>();
    const auto plain = plainPoints();
    if (plain.empty())
        made->drawn = flattened();
    made->chunks = FlatPath::chunksOf(plain.empty() ? made->drawn.points : plain, isClosed());
    m_cache = std::move(made);
    return *m_cache;
}

// Short plain paths are tested as fast without any preparation, and cost no memory then.
FlatPath PathNodeImpl::flat() const
{
    const auto plain = plainPoints();
    if (!plain.empty() && plain.size() <= FlatChunk::kPieces)
        return {plain, isClosed(), 0, {}, {}};
    const Cache& known = cache();
    if (!plain.empty())
        return {plain, isClosed(), 0, {}, known.chunks};
    return {known.drawn.points, isClosed(), known.drawn.firstSegment, known.drawn.segments,
            known.chunks};
}

PathNodeImpl::Runs PathNodeImpl::runsOf(const FlatPath& flat) const
{
    const std::size_t count = flat.pieceCount();
    Runs runs;
    if (count == 0)
        return runs;
    if (!m_strokes) {
        runs.push_back({0, count, &drawStyle().stroke(), flat.isClosed});
        return runs;
    }
    const auto isOther = [&](std::size_t a, std::size_t b) {
        const std::size_t one = flat.segmentOf(a), two = flat.segmentOf(b);
        return one != two && strokeOf(one) != strokeOf(two);
    };
    // A closed path's first run may have begun before its first point.
    std::size_t begin = 0;
    while (flat.isClosed && begin < count && !isOther(begin ? begin - 1 : count - 1, begin))
        ++begin;
    if (begin == count) {
        runs.push_back({0, count, &strokeOf(flat.segmentOf(0)), true});
        return runs;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t piece = (begin + i) % count;
        if (i == 0 || isOther(piece ? piece - 1 : count - 1, piece))
            runs.push_back({piece, 0, &strokeOf(flat.segmentOf(piece)), false});
        ++runs.back().count;
    }
    return runs;
}

PathNodeImpl::Range PathNodeImpl::segmentsOf(const FlatPath& flat, std::size_t firstPiece,
                                             std::size_t count) const
{
    const std::size_t pieces = flat.pieceCount(), lastPiece = firstPiece + count - 1;
    const std::size_t last = flat.segmentOf(lastPiece % pieces);
    return {flat.segmentOf(firstPiece), lastPiece < pieces ? last : last + segmentCount()};
}

bool PathNodeImpl::isFilled() const
{
    return isClosed() && drawStyle().fill().style() != FillStyle::NoFill;
}

bool PathNodeImpl::hasOutline() const
{
    return isFilled() || widestHalf() > 0 || !isExact();
}

double PathNodeImpl::widestHalf() const
{
    double widest = halfStroke(drawStyle().stroke());
    for (const Stroke& stroke : strokes())
        widest = std::max(widest, halfStroke(stroke));
    return widest;
}

bool PathNodeImpl::outlineContains(const QPointF& point) const
{
    if (!isFinite(point) || !encloses(strokedRect(), point))
        return false;
    const FlatPath flat = this->flat();
    if (flat.pieceCount() == 0)
        return false;
    if (!isExact())
        return true;
    const double widest = widestHalf();
    const QRectF around(point - QPointF(widest, widest), QSizeF(2 * widest, 2 * widest));
    const bool isOnStroke = flat.anyPiece(around, [&](std::size_t piece) {
        const double half = halfStroke(strokeOf(flat.segmentOf(piece)));
        return half > 0 &&
               Segments::squaredDistance(point, flat.start(piece), flat.end(piece)) <= half * half;
    });
    return isOnStroke || (isFilled() && flat.isInside(point));
}

bool PathNodeImpl::outlineIntersects(const Bounds& area) const
{
    const QRectF rect = Vetra::toQt(area.boundingRect());
    const FlatPath flat = this->flat();
    if (flat.pieceCount() == 0 || !Vetra::fromQt(strokedRect()).intersects(area.boundingRect()))
        return false;
    const bool isTooLong = flat.pieceCount() > kMostOutlinePieces;
    if (!isExact() || !isFinite(rect) || !(area.isOnlyRect() || isTooLong))
        return outline().intersectsWith(area);
    const double widest = widestHalf();
    const QRectF around = rect.adjusted(-widest, -widest, widest, widest);
    const bool isOnStroke = flat.anyPiece(around, [&](std::size_t piece) {
        const double half = halfStroke(strokeOf(flat.segmentOf(piece)));
        return half > 0 && Segments::isNear(flat.start(piece), flat.end(piece), rect, half);
    });
    if (isOnStroke || !isFilled())
        return isOnStroke;
    return flat.isInside(rect.center()) || flat.anyPiece(rect, [&](std::size_t piece) {
        return Segments::crosses(flat.start(piece), flat.end(piece), rect);
    });
}

Bounds PathNodeImpl::outline() const
{
    Cache& known = cache();
    if (!known.outline) {
        PathCounters::outlinesBuilt().increment();
        known.outline = computedOutline();
    }
    return *known.outline;
}

Bounds PathNodeImpl::computedOutline() const
{
    const FlatPath flat = this->flat();
    if (flat.pieceCount() == 0)
        return Bounds();
    if (!isExact() || flat.pieceCount() > kMostOutlinePieces)
        return Bounds(strokedRect());
    Bounds result;
    for (const Run& run : runsOf(flat)) {
        if (run.stroke->isNoStroke())
            continue;
        QPainterPath path =
            run.isLoop ? wholePath() : pathOf(segmentsOf(flat, run.first, run.count));
        result.unionWith(Bounds(strokeAlong(path, *run.stroke)));
    }
    if (isFilled())
        result.unionWith(Bounds(wholePath()));
    return result;
}

QPainterPath PathNodeImpl::wholePath() const
{
    Cache& known = cache();
    if (!known.whole) {
        PathCounters::outlinesBuilt().increment();
        const FlatPath flat = this->flat();
        QPainterPath path = pathOf(segmentsOf(flat, 0, flat.pieceCount()));
        if (isClosed())
            path.closeSubpath();
        known.whole = path;
    }
    return *known.whole;
}

bool PathNodeImpl::hidesItsSilhouette() const
{
    return NodeImpl::hidesItsSilhouette() &&
           std::all_of(strokes().begin(), strokes().end(), [](const Stroke& stroke) {
               return !isStroked(stroke) || stroke.color().alpha() == 255;
           });
}

QByteArray PathNodeImpl::silhouetteKey() const
{
    if (m_strokes || flat().pieceCount() > SilhouetteKey::kMostElements)
        return {};
    return SilhouetteKey().add(wholePath(), drawStyle()).bytes();
}

QPainterPath PathNodeImpl::silhouetteOutline(double viewScale) const
{
    const Stroke& stroke = drawStyle().stroke();
    if (m_strokes || (!isFilled() && keepsItsWidth(stroke, viewScale)))
        return outline().asQPainterPath();
    return isFilled() ? strokedEdge(wholePath(), stroke, viewScale)
                      : strokedArea(wholePath(), stroke, viewScale);
}

} // namespace Tova2
