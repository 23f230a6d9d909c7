#include "nodes/linenodeimpl.h"

#include "nodes/destruction.h"
#include "nodes/effects/silhouettekey.h"
#include "nodes/effects/silhouettestroke.h"
#include "nodes/outlinereach.h"
#include "nodes/paintcontext.h"
#include "nodes/segmenttests.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <utility>

namespace Tova2 {

using Which = LineEnds::Which;

namespace {

double dot(const QPointF& a, const QPointF& b)
{
    return a.x() * b.x() + a.y() * b.y();
}

double cross(const QPointF& a, const QPointF& b)
{
    return a.x() * b.y() - a.y() * b.x();
}

} // namespace

void LineNodeImpl::setLine(const QLineF& line)
{
    if (!isFinite(line.p1()) || !isFinite(line.p2()))
        return;
    if (isSame(line.p1(), m_line.p1()) && isSame(line.p2(), m_line.p2()))
        return;
    m_line = line;
    const DestructionDelay delay;
    reportChange(ChangeLevel::Geometry);
    placeDecorations();
}

void LineNodeImpl::setDecoration(Which which, const LineEndDecoration& decoration)
{
    finishDecorations(m_ends.set(which, decoration, *this));
}

void LineNodeImpl::applyDecorations()
{
    finishDecorations(m_ends.apply(*this));
}

void LineNodeImpl::finishDecorations(bool isDrawnElsewhere)
{
    const DestructionDelay delay;
    if (isDrawnElsewhere)
        reportChange(ChangeLevel::Geometry);
    placeDecorations();
}

// One after the other, from the line as it is then: whoever is told of a move may edit it.
void LineNodeImpl::placeDecorations()
{
    if (m_ends.isEmpty())
        return;
    const DestructionDelay delay;
    m_ends.place(Which::Start, LineTip::between(m_line.p2(), m_line.p1()), *this);
    m_ends.place(Which::End, LineTip::between(m_line.p1(), m_line.p2()), *this);
}

bool LineNodeImpl::isDrawn() const
{
    const double left = m_ends.backoff(Which::Start) + m_ends.backoff(Which::End);
    return !drawStyle().stroke().isNoStroke() &&
           !(left > 0 && left >= LineTip::distance(m_line.p1(), m_line.p2()));
}

QRectF LineNodeImpl::geometryRect() const
{
    const auto [left, right] = std::minmax({m_line.x1(), m_line.x2()});
    const auto [top, bottom] = std::minmax({m_line.y1(), m_line.y2()});
    return {left, top, right - left, bottom - top};
}

// A line without length points to the right.
LineNodeImpl::Band LineNodeImpl::band() const
{
    const Stroke& stroke = drawStyle().stroke();
    const double length = std::hypot(m_line.dx(), m_line.dy()), half = halfStroke(stroke);
    const double cap = stroke.capStyle() == StrokeCapStyle::SquareCap ? half : 0.0;
    const bool hasDirection = length > 0 && std::isfinite(length);
    return {hasDirection ? QPointF(m_line.dx() / length, m_line.dy() / length) : QPointF(1, 0),
            m_ends.backoff(Which::Start) - cap, length - m_ends.backoff(Which::End) + cap, half,
            stroke.capStyle() == StrokeCapStyle::RoundCap};
}

QLineF LineNodeImpl::middleOf(const Band& band) const
{
    return {m_line.p1() + band.along * band.first, m_line.p1() + band.along * band.last};
}

double LineNodeImpl::strokeReach() const
{
    if (drawStyle().stroke().capStyle() != StrokeCapStyle::SquareCap)
        return 0.5;
    const QPointF along = band().along;
    return (std::abs(along.x()) + std::abs(along.y())) / 2;
}

Bounds LineNodeImpl::outline() const
{
    if (!isDrawn())
        return Bounds();
    const Band band = this->band();
    if (band.isRound) {
        const QRectF level(band.first - band.half, -band.half,
                           band.last - band.first + 2 * band.half, 2 * band.half);
        QPainterPath path;
        path.addRoundedRect(level, band.half, band.half);
        const auto [x, y] = std::pair(band.along.x(), band.along.y());
        return Bounds(QTransform(x, y, -y, x, m_line.x1(), m_line.y1()).map(path));
    }
    const QPointF aside = QPointF(-band.along.y(), band.along.x()) * band.half;
    const auto [start, end] = std::pair(middleOf(band).p1(), middleOf(band).p2());
    return Bounds(Vetra::fromQt(start - aside), Vetra::fromQt(end - aside),
                  Vetra::fromQt(end + aside), Vetra::fromQt(start + aside));
}

bool LineNodeImpl::outlineContains(const QPointF& point) const
{
    if (!isDrawn() || !isFinite(point))
        return false;
    const Band band = this->band();
    const QLineF middle = middleOf(band);
    if (band.isRound)
        return Segments::squaredDistance(point, middle.p1(), middle.p2()) <= band.half * band.half;
    const QPointF offset = point - m_line.p1();
    const double position = dot(offset, band.along), distance = cross(band.along, offset);
    return position >= band.first && position <= band.last && std::abs(distance) <= band.half;
}

bool LineNodeImpl::outlineIntersects(const Bounds& area) const
{
    const QRectF rect = Vetra::toQt(area.boundingRect());
    if (!area.isOnlyRect() || !isFinite(rect) || !isDrawn())
        return NodeImpl::outlineIntersects(area);
    const Band band = this->band();
    const QLineF middle = middleOf(band);
    if (band.isRound)
        return Segments::isNear(middle.p1(), middle.p2(), rect, band.half);
    // Two rectangles are apart when they are along a side of either.
    if (!outline().boundingRect().intersects(area.boundingRect()))
        return false;
    const QPointF center = rect.center() - m_line.p1();
    const double width = std::abs(rect.width()) / 2, height = std::abs(rect.height()) / 2;
    const double x = std::abs(band.along.x()), y = std::abs(band.along.y());
    const double position = dot(center, band.along), extent = width * x + height * y;
    return position + extent >= band.first && position - extent <= band.last &&
           std::abs(cross(band.along, center)) <= band.half + width * y + height * x;
}

void LineNodeImpl::paintNode(PaintContext& context) const
{
    if (!isDrawn())
        return;
    context.setStyle(drawStyle());
    const QPointF along = band().along;
    context.drawLine({m_line.p1() + along * m_ends.backoff(Which::Start),
                      m_line.p2() - along * m_ends.backoff(Which::End)});
}

QByteArray LineNodeImpl::silhouetteKey() const
{
    return SilhouetteKey()
        .add(m_line.x1(), m_line.y1(), m_line.x2(), m_line.y2(), m_ends.backoff(Which::Start),
             m_ends.backoff(Which::End), drawStyle())
        .bytes();
}

QPainterPath LineNodeImpl::silhouetteOutline(double viewScale) const
{
    const Stroke& stroke = drawStyle().stroke();
    if (!isDrawn() || keepsItsWidth(stroke, viewScale))
        return outline().asQPainterPath();
    QPainterPath path(m_line.p1());
    path.lineTo(m_line.p2());
    return strokedArea(path, stroke, viewScale);
}

} // namespace Tova2
