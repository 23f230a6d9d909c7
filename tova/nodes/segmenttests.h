#pragma once

#include <QPointF>
#include <QRectF>

#include <optional>
#include <utility>

namespace Tova2::Segments {

// Tests of the straight line from `a` to `b`, which may be a point. Rectangles are closed.

double squaredLength(const QPointF& v);
double squaredDistance(const QPointF& p, const QPointF& a, const QPointF& b);
/// Whether the rectangle around the segment has nothing in common with `rect`.
bool isSeparate(const QPointF& a, const QPointF& b, const QRectF& rect);
/// Whether the segment and the rectangle have a point in common.
bool crosses(const QPointF& a, const QPointF& b, const QRectF& rect);
/// Whether they come within the distance.
bool isNear(const QPointF& a, const QPointF& b, const QRectF& rect, double distance);
/// Where the segment enters and leaves the rectangle, as shares of its length. None where it passes
/// by, or where its length is no number.
std::optional<std::pair<double, double>> partWithin(const QPointF& a, const QPointF& b,
                                                    const QRectF& rect);
/// How often, and in which direction, the segment passes a ray from the point to the right.
int windingOf(const QPointF& p, const QPointF& a, const QPointF& b);

} // namespace Tova2::Segments
