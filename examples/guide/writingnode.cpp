// Gauges: nodes with a painter of one's own.
#include "gauge.h"
#include "pages.h"
#include "sketch.h"

using namespace Tova2;

QImage nodePage()
{
    Sketch sketch(380, 110);
    double x = 55;
    bool isRight = true;
    for (const double value : {0.12, 0.4, 0.66, 0.95}) {
        const Vetra::Holder<GaugePainter> painter(new GaugePainter(20));
        CustomNode gauge;
        gauge.setPainter(painter.get());
        gauge.setDrawStyle(Sketch::smooth(Sketch::line(
            1, value < 0.9 ? Vetra::Color(0.2, 0.45, 0.75) : Vetra::Color(0.8, 0.2, 0.2))));
        gauge.setPosition({x, 55});
        sketch.scene().addNode(gauge);
        painter->setRadius(38);
        painter->setValue(value);
        isRight = isRight && gauge.getWidth() == 76 && !gauge.contains({-37, -37});
        x += 90;
    }
    return isRight ? sketch.picture() : QImage();
}
