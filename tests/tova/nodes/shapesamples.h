#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"

#include "tova/nodes/style/stroke.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <string>
#include <vector>

namespace Tova2 {

/// Paths around the origin, each with something that a bounding rectangle or a hit test can get
/// wrong.
struct ShapeSample {
    std::string name;
    QPainterPath path;
};

inline QPainterPath polygonOf(const std::vector<QPointF>& points, bool isClosed)
{
    QPainterPath path(points.front());
    for (const QPointF& p : points)
        path.lineTo(p);
    if (isClosed)
        path.closeSubpath();
    return path;
}

inline std::vector<ShapeSample> shapeSamples()
{
    QPainterPath cusp(QPointF(-20, 0));
    cusp.cubicTo(60, 30, -60, 30, 20, 0);
    QPainterPath tangentCorner(QPointF(-30, 10));
    tangentCorner.cubicTo(-30, -10, 0, -10, 0, 10);
    tangentCorner.lineTo(5, -20);
    QPainterPath hole;
    hole.addRect(-30, -20, 60, 40);
    hole.addEllipse(-12, -12, 24, 24);
    QPainterPath dot(QPointF(0, 0));
    dot.lineTo(1e-9, 0);
    QPainterPath apart = polygonOf({{-40, -10}, {-20, -30}}, false);
    apart.addPath(polygonOf({{10, 10}, {40, 10}, {40, 30}}, true));
    return {
        {"RightAngle", polygonOf({{-30, -20}, {20, -20}, {20, 30}}, false)},
        {"SharpZigzag", polygonOf({{-30, 0}, {20, -4}, {-30, -8}, {25, -30}}, false)},
        {"NeedlePointingRight", polygonOf({{-40, -3}, {10, 0}, {-40, 3}}, true)},
        {"StraightBack", polygonOf({{-30, 5}, {20, 5}, {-10, 5}}, false)},
        {"Diamond", polygonOf({{0, -30}, {30, 0}, {0, 30}, {-30, 0}}, true)},
        {"Slanted", polygonOf({{-30, -21}, {17, 28}}, false)},
        {"Connector", polygonOf({{-40, -20}, {0, -20}, {0, 5}, {20, 5}, {20, 30}}, false)},
        {"Star", polygonOf({{0, -30}, {18, 25}, {-29, -9}, {29, -9}, {-18, 25}}, true)},
        {"CurveWithCusp", cusp},
        {"CurveIntoSharpCorner", tangentCorner},
        {"RectangleWithHole", hole},
        {"Dot", dot},
        {"TwoParts", apart},
    };
}

inline QTransform centredIn(const QSize& size, double scale = 1)
{
    return QTransform::fromScale(scale, scale) *
           QTransform::fromTranslate(size.width() / 2, size.height() / 2);
}

/// On white, with the node's origin in the middle.
inline QImage pictureOf(const NodeImpl& node, const QSize& size, double scale = 1)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintOptions options;
    options.viewScale = scale;
    PaintContext context(painter, centredIn(size, scale), options);
    context.enter(QPointF());
    node.paintNode(context);
    return image;
}

inline DrawStyle styleOf(double width, StrokeStyle line, StrokeCapStyle cap, StrokeJoinStyle join)
{
    DrawStyle style;
    style.setStroke(Stroke(Vetra::Color::fromPacked(0xff000000), width, line, cap, join, nullptr));
    style.setIsAntiAliased(true);
    return style;
}

} // namespace Tova2
