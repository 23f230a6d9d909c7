#include "shapesamples.h"

#include "nodes/ellipsenodeimpl.h"
#include "nodes/fancyroundedrectnodeimpl.h"
#include "nodes/linenodeimpl.h"
#include "nodes/roundedrectnodeimpl.h"
#include "nodes/shapenodeimpl.h"

#include "vetra/qt.h"

#include <functional>

namespace Tova2 {
namespace {

constexpr QSize kSheet(160, 120);

struct PaintCase {
    std::string name;
    Node node;
    std::function<void(QPainter&)> draw;
};

template <class Impl, class Set>
Node made(Set set)
{
    auto* const impl = makeNode<Impl>();
    Node node = impl->handle();
    set(*impl);
    return node;
}

std::vector<PaintCase> paintCases()
{
    const QRectF rect(-40, -25, 80, 50);
    std::vector<PaintCase> cases{
        {"A radius beyond half the shorter side stays circular",
         made<RoundedRectNodeImpl>([&](auto& node) {
             node.setRect(rect);
             node.setRadius(100);
         }),
         [=](QPainter& p) { p.drawRoundedRect(rect, 25, 25); }},
        {"Four square corners are a rectangle",
         made<FancyRoundedRectNodeImpl>([&](auto& node) { node.setRect(rect); }),
         [=](QPainter& p) { p.drawRect(rect); }},
        {"Four equal corners are a rounded rectangle",
         made<FancyRoundedRectNodeImpl>([&](auto& node) {
             node.setRect(rect);
             for (const auto corner :
                  {Corner::TopLeft, Corner::TopRight, Corner::BottomLeft, Corner::BottomRight})
                 node.setRadius(corner, 12);
         }),
         [=](QPainter& p) { p.drawRoundedRect(rect, 12, 12); }},
        {"Ellipse", made<EllipseNodeImpl>([&](auto& node) { node.setRect(rect); }),
         [=](QPainter& p) { p.drawEllipse(rect); }},
        {"Line", made<LineNodeImpl>([&](auto& node) {
             node.setLine({-30, -20, 35, 12});
         }),
         [](QPainter& p) { p.drawLine(QLineF(-30, -20, 35, 12)); }},
    };
    for (const auto& sample : shapeSamples()) {
        cases.push_back({sample.name, made<ShapeNodeImpl>([&](auto& node) {
                             node.setFigure(Vetra::fromQt(sample.path));
                         }),
                         [=](QPainter& p) { p.drawPath(sample.path); }});
    }
    return cases;
}

/// Antialiased edges of the same curve, built in another way, may differ by a shade.
int differingPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 8;
    }
    return count;
}

TEST(ShapePaint, LooksLikeTheToolkitsOwnDrawing)
{
    for (auto& c : paintCases()) {
        DrawStyle style =
            styleOf(3, StrokeStyle::DashLine, StrokeCapStyle::RoundCap, StrokeJoinStyle::RoundJoin);
        style.setFill(Fill(Vetra::Color::fromPacked(0xffa0c0e0)));
        c.node.setDrawStyle(style);
        auto* const impl =
            static_cast<NodeImpl*>(const_cast<Vetra::Referenced*>(c.node.getReferenced()));

        QImage expected(kSheet, QImage::Format_RGB32);
        expected.fill(Qt::white);
        QPainter painter(&expected);
        painter.setTransform(centredIn(kSheet));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 3, Qt::DashLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(QColor(0xa0, 0xc0, 0xe0));
        c.draw(painter);
        // Dashes begin elsewhere on paths that begin elsewhere.
        const bool startsElsewhere = c.name.find("corners") != std::string::npos;
        if (startsElsewhere) {
            style.setStroke(Stroke::NoStroke());
            c.node.setDrawStyle(style);
            expected.fill(Qt::white);
            painter.setPen(Qt::NoPen);
            c.draw(painter);
        }
        EXPECT_EQ(differingPixels(pictureOf(*impl, kSheet), expected), 0) << c.name;
    }
}

} // namespace
} // namespace Tova2
