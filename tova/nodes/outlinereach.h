#pragma once

#include "nodes/outlinepieces.h"

#include <QRectF>

class QPainterPath;

namespace Tova2 {

class Stroke;

// How far strokes reach beyond what they are drawn along.

/// Half the stroke's width at a view scale of 1, as far as it is drawn; 0 without a stroke.
double halfStroke(const Stroke& stroke);
/// The rectangle with half the stroke around it.
QRectF strokedHull(const QRectF& rect, const Stroke& stroke);
/// For outlines without corners, as a multiple of the width.
double smoothStrokeReach(const Stroke& stroke);
/// For outlines with right angles between lines and curves.
double rightAngleStrokeReach(const Stroke& stroke);

struct StrokeExtent {
    QRectF rect;        ///< of the stroke at a view scale of 1, or of the geometry without one
    double reach = 0.5; ///< as a multiple of the width, at any
};

/// Of a path's stroke with its corners and ends, computed one by one.
StrokeExtent strokeExtentOf(const std::vector<OutlineSubpath>& subpaths, const QRectF& geometry,
                            const Stroke& stroke);

} // namespace Tova2
