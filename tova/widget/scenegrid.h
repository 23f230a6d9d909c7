#pragma once

#include <QRectF>
#include <QTransform>

class QPainter;

namespace Tova2 {

/// The grid behind the nodes of a scene, as one canvas shows it. It lies in no scene, and so is no
/// part of bounds, queries or pictures.
class SceneGrid {
public:
    /// Takes over the bounds of the scene: what needs painting again because they are others now,
    /// in scene coordinates; empty when they are the same.
    QRectF follow(const QRectF& sceneBounds);
    /// What the grid covers.
    QRectF area() const;
    void paint(QPainter& painter, const QTransform& view, const QRectF& part) const;

private:
    QRectF m_bounds;
};

} // namespace Tova2
