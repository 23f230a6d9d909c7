#pragma once

#include "tova/nodes/geometry/bounds.h"

#include "vetra/transform.h"

#include <QPainterPath>

namespace Tova2 {

/// Every element; the toolkit's booleans crash on others.
bool isFinite(const QPainterPath& path);
bool isFinite(const Bounds::Rect& rect);
/// Whether a path can have such coordinates: the toolkit drops points from 1e128 on.
bool fitsPath(const Bounds::Rect& rect);
/// The rectangle, or what of it fits a path.
QPainterPath pathOf(const Bounds::Rect& rect);
/// Each element through the transform.
QPainterPath mapped(const QPainterPath& path, const Vetra::Transform& t);
/// Of the outline, without its control points.
Bounds::Rect boundingRectOf(const QPainterPath& path);

/// What brings a path into the coordinates where the toolkit's search for crossings with a curve
/// ends; 1 mostly.
double rangeFactor(const QPainterPath& path);

// All of these take finite paths.
Bounds unite(const QPainterPath& a, const QPainterPath& b);
Bounds intersect(const QPainterPath& a, const QPainterPath& b);
/// Exact for a path of any length.
Bounds intersect(const QPainterPath& path, const Bounds::Rect& rect);
bool containsPoint(const QPainterPath& path, const Bounds::Point& point);
bool containsRect(const QPainterPath& path, const Bounds::Rect& rect);
bool intersectsRect(const QPainterPath& path, const Bounds::Rect& rect);
bool containsAll(const QPainterPath& path, const QPainterPath& other);
bool intersectsAny(const QPainterPath& path, const QPainterPath& other);

} // namespace Tova2
