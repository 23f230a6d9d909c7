#pragma once

#include <QPainterPath>

namespace Tova2 {

class Stroke;

/// Whether the stroke is as wide at this view scale as at a view scale of 1.
bool keepsItsWidth(const Stroke& stroke, double viewScale);
/// What the stroke covers along a path at a view scale, without the gaps of dashes.
QPainterPath strokedArea(const QPainterPath& path, const Stroke& stroke, double viewScale);
/// The edge of a filled area with the stroke around it; without the stroke where the two are too
/// long to be united.
QPainterPath strokedEdge(const QPainterPath& area, const Stroke& stroke, double viewScale);

} // namespace Tova2
