#include "scene/backgroundpainter.h"

#include "tova/nodes/style/background.h"
#include "vetra/qt.h"

#include <QPainter>

namespace Tova2 {

void paintBackground(const Background& background, QPainter& painter, const QRectF& area)
{
    if (background.hasColor())
        painter.fillRect(area, Vetra::toQt(background.getColor()));
}

} // namespace Tova2
