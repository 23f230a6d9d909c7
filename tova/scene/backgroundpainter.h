#pragma once

class QPainter;
class QRectF;

namespace Tova2 {

class Background;

/// Fills `area`, in the painter's coordinates, with what a scene shows behind its nodes.
void paintBackground(const Background& background, QPainter& painter, const QRectF& area);

} // namespace Tova2
