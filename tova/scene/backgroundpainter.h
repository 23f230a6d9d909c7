#pragma once

#include "nodes/cachebudget.h"

#include "tova/nodes/style/background.h"

#include <QImage>

#include <list>
#include <memory>

class QPainter;
class QRect;
class QRectF;
class QTransform;

namespace Tova2 {

/// Draws what a scene shows behind its nodes: the colour, over it the gradient, over that the
/// image. What takes long and does not lie in the scene is kept in the sizes last shown.
class BackgroundPainter {
public:
    /// `area` is the whole of a picture or a view, in the painter's coordinates; of it the
    /// painter's clip leaves what is to be painted, each part as it is in the whole. `view` maps
    /// the scene to the painter's coordinates: a gradient in logical coordinates lies in the scene,
    /// any other in the area, as does the image.
    void paint(const Background& background, QPainter& painter, const QRectF& area,
               const QTransform& view);

private:
    struct Kept {
        QImage pixels;
        std::unique_ptr<CacheBudget::Share> share;
    };

    void follow(const Background& background);
    bool paintKept(QPainter& painter, const QRect& frame);
    bool keep(QImage pixels, double ratio);

    Background m_shown;     ///< what `m_kept` was made from
    std::list<Kept> m_kept; ///< most recently used first
};

} // namespace Tova2
