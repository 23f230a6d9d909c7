#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"

#include "tova/tova.h"
#include "vetra/qt.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <string>
#include <vector>

namespace Tova2 {

using Point = Vetra::GLPoint<double>;
using Points = std::vector<Point>;

struct LinearSample {
    std::string name;
    Points points;
};

/// Around the origin, each with something that a stroker, bounds or a hit test can get wrong.
inline std::vector<LinearSample> linearSamples()
{
    return {
        {"Connector", {{-40, -20}, {0, -20}, {0, 5}, {20, 5}, {20, 30}}},
        {"ShortMiddle", {{-40, -20}, {0.25, -20}, {0.25, -19.5}, {20, -19.5}, {20, 30}}},
        {"DoubledPoint", {{-30, 0}, {10, 0}, {10, 0}, {10, 30}}},
        {"StraightOn", {{-30, 3.3}, {0, 3.3}, {30, 3.3}}},
        {"StraightBack", {{-30, 5}, {20, 5}, {-10, 5}}},
        {"SharpZigzag", {{-30, 0}, {20, -4}, {-30, -8}, {25, -30}}},
        {"Slanted", {{-30, -21}, {17, 28}}},
        {"SelfCrossing", {{-30, -20}, {30, -20}, {30, 20}, {0, 20}, {0, -35}}},
        {"BackToTheStart", {{-20, -20}, {20, -20}, {20, 20}, {-20, -20}}},
        {"Staircase", {{-35, -30}, {-20, -30}, {-20, -10}, {0, -10}, {0, 10}, {25, 10}, {25, 32}}},
    };
}

inline DrawStyle lineStyle(double width, StrokeStyle line = StrokeStyle::SolidLine,
                           StrokeCapStyle cap = StrokeCapStyle::FlatCap,
                           StrokeJoinStyle join = StrokeJoinStyle::MiterJoin)
{
    DrawStyle style;
    style.setStroke(Stroke(Vetra::Color::fromPacked(0xff000000), width, line, cap, join, nullptr));
    style.setIsAntiAliased(true);
    return style;
}

inline NodeImpl& implOf(const Node& node)
{
    return *static_cast<NodeImpl*>(const_cast<Vetra::Referenced*>(node.getReferenced()));
}

inline QTransform centredIn(const QSize& size, double scale = 1)
{
    return QTransform::fromScale(scale, scale) *
           QTransform::fromTranslate(size.width() / 2, size.height() / 2);
}

/// The node alone, on white, with its origin in the middle.
inline QImage pictureOf(const Node& node, const QSize& size, double scale = 1,
                        bool fillsStrokes = true)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintOptions options;
    options.viewScale = scale;
    const QTransform view = centredIn(size, scale);
    options.exposed = Vetra::fromQt(view.inverted().mapRect(QRectF(QPointF(), QSizeF(size))));
    PaintContext context(painter, view, options);
    context.setFillsStrokes(fillsStrokes);
    context.enter(QPointF());
    implOf(node).paintNode(context);
    return image;
}

inline int mostDifference(const QImage& a, const QImage& b)
{
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            most = std::max(most, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
    }
    return most;
}

/// Of the pixels that are not white, in the node's coordinates.
inline QRectF touched(const QImage& image)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0xffffffff)
                area |= QRect(x, y, 1, 1);
        }
    }
    return QRectF(area).translated(-image.width() / 2, -image.height() / 2);
}

} // namespace Tova2
