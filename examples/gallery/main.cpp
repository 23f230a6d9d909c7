// Every kind of node in every look, on one sheet: what a host can draw without writing a painter,
// and one it wrote.
#include <tova/tova.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <vector>

using namespace Tova2;
using Vetra::Color;

namespace {

constexpr double kColumn = 110, kRow = 90;
constexpr Vetra::GLRect<double> kBox{0, 0, 80, 50};

const Color kInk(0.13, 0.22, 0.36), kPaper(0.87, 0.92, 0.97), kAccent(0.91, 0.55, 0.2);

Stroke stroke(double width, StrokeStyle style = StrokeStyle::SolidLine,
              StrokeCapStyle cap = StrokeCapStyle::FlatCap,
              StrokeJoinStyle join = StrokeJoinStyle::MiterJoin)
{
    return Stroke(kInk, width, style, cap, join, nullptr);
}

DrawStyle smooth(const Stroke& line, const Fill& fill)
{
    DrawStyle style(line, fill);
    style.setIsAntiAliased(true);
    return style;
}

class Sheet {
public:
    /// The next place in the row.
    Node put(Node node, const DrawStyle& style)
    {
        node.setDrawStyle(style);
        node.setPosition({m_column++ * kColumn, m_row * kRow});
        return m_scene->addNode(node);
    }
    void nextRow()
    {
        m_column = 0;
        ++m_row;
    }
    Scene& scene() { return *m_scene; }

private:
    Vetra::Holder<Scene> m_scene = Scene::createScene();
    int m_column = 0, m_row = 0;
};

Vetra::Shape zigzag()
{
    Vetra::Shape shape;
    shape.moveTo({0, 45});
    shape.lineTo({20, 5});
    shape.lineTo({40, 45});
    shape.lineTo({60, 5});
    shape.lineTo({80, 45});
    return shape;
}

Vetra::Shape drop()
{
    Vetra::Shape shape;
    shape.moveTo({40, 0});
    shape.cubicTo({80, 30}, {70, 50}, {40, 50});
    shape.cubicTo({10, 50}, {0, 30}, {40, 0});
    shape.closeSubpath();
    return shape;
}

void kinds(Sheet& sheet)
{
    const auto style = smooth(stroke(2), Fill(kPaper));
    sheet.put(RectNode(kBox), style);
    sheet.put(RoundedRectNode(kBox, 12), style);
    sheet.put(FancyRoundedRectNode(kBox, 0, 24, 24, 6), style);
    sheet.put(EllipseNode(Ellipse(kBox)), style);
    sheet.put(LineNode({0, 45}, {80, 5}), style);
    sheet.put(ShapeNode(drop()), style);
    sheet.nextRow();
}

void strokes(Sheet& sheet)
{
    for (int style = 1; style <= 5; ++style)
        sheet.put(LineNode({0, 25}, {80, 25}), smooth(stroke(3, StrokeStyle(style)), Fill()));
    sheet.put(RectNode(kBox), smooth(stroke(0), Fill())); // one pixel at any zoom
    sheet.nextRow();
    for (int join = 0; join < 4; ++join)
        sheet.put(ShapeNode(zigzag()),
                  smooth(stroke(9, StrokeStyle::SolidLine, StrokeCapStyle(join % 3),
                                StrokeJoinStyle(join)),
                         Fill()));
    DrawStyle crisp(stroke(1), Fill(kPaper));
    crisp.setIsPixelAligned(true);
    sheet.put(RectNode({0.3, 0.3, 80, 50}), crisp);
    sheet.nextRow();
}

Vetra::Gradient coloured(Vetra::Gradient gradient, Vetra::Gradient::Spread spread)
{
    gradient.addStop(0, kPaper);
    gradient.addStop(0.6, kAccent);
    gradient.addStop(1, kInk);
    gradient.setSpread(spread);
    return gradient;
}

void fills(Sheet& sheet)
{
    using Vetra::Gradient;
    const auto put = [&](const Gradient& gradient, Gradient::Spread spread) {
        sheet.put(RoundedRectNode(kBox, 8), smooth(stroke(1), Fill(coloured(gradient, spread))));
    };
    put(Gradient::linear({0, 0}, {80, 50}), Gradient::Spread::Pad);
    put(Gradient::linear({0, 0}, {25, 0}), Gradient::Spread::Reflect);
    put(Gradient::linear({0, 0}, {25, 0}), Gradient::Spread::Repeat);
    put(Gradient::radial({40, 25}, 40, {25, 15}), Gradient::Spread::Pad);
    put(Gradient::conical({40, 25}, 30), Gradient::Spread::Pad);
    sheet.put(EllipseNode(Ellipse(kBox)), smooth(stroke(1), Fill(Color(0.9, 0.5, 0.2, 0.4))));
    sheet.nextRow();
}

void families(Sheet& sheet)
{
    const auto style = smooth(stroke(2), Fill(kPaper));
    const auto child = [](Node parent) {
        EllipseNode node(Ellipse(Vetra::GLRect<double>{40, 20, 60, 50}));
        node.setDrawStyle(smooth(stroke(2), Fill(kAccent)));
        node.setParent(parent);
        return node;
    };
    child(sheet.put(RoundedRectNode(kBox, 12), style));
    Node clipping = sheet.put(RoundedRectNode(kBox, 12), style);
    clipping.setClipsChildren(true);
    child(clipping);
    child(sheet.put(RectNode(kBox), style)).setStacksBehindParent(true);
    Node faint = sheet.put(RectNode(kBox), style);
    faint.setOpacity(0.4);
    child(faint);
    Node turned = sheet.put(RectNode(kBox), style);
    turned.rotateDegreesAroundPoint(20, {40, 25});
    child(turned);
    Node fixed = sheet.put(RectNode(Vetra::GLRect<double>{0, 0, 40, 25}), style);
    fixed.setIgnoresTransformations(true);
    sheet.nextRow();
}

/// A host's own drawing.
class ClockFace : public CustomNodePainter {
    Vetra::GLRect<double> getBoundingRect(double) const override { return {0, 0, 50, 50}; }
    void paint(QPainter* painter, double, const Vetra::GLRect<double>&,
               const PaintOptions&) override
    {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(Qt::darkBlue, 2));
        painter->drawEllipse(QRectF(1, 1, 48, 48));
        painter->drawLine(QLineF(25, 25, 25, 8));
        painter->drawLine(QLineF(25, 25, 36, 30));
    }
};

void contents(Sheet& sheet)
{
    CustomNode clock;
    clock.setPainter(new ClockFace);
    sheet.put(clock, DrawStyle());
    for (const char* text : {"Latin, \u00e9\u00df", "\u0440\u0443\u0441\u0441\u043a\u0438\u0439",
                             "\u6d41\u7a0b\u56f3", "\u05e9\u05dc\u05d5\u05dd", "two\nlines"}) {
        TextNode label{std::string(text)};
        label.setRect(kBox);
        label.setColor(kInk);
        label.setHorizontalAlignment(HorizontalAlignment::Middle);
        label.setVerticalAlignment(VerticalAlignment::Middle);
        sheet.put(label, DrawStyle());
    }
    sheet.nextRow();
}

void effects(Sheet& sheet)
{
    const auto put = [&](Node node, const auto& record, const Fill& fill) {
        DrawStyle style = smooth(stroke(2), fill);
        style.setEffect(Effect::createEffect(record));
        sheet.put(node, style);
    };
    const Color glass(0.3, 0.8, 0.4, 0.35);
    put(RoundedRectNode(kBox, 8), Effect::Shadow(0.4, 6, {3, 4}, true), Fill(kPaper));
    // Nothing of a masked shadow shines through the node.
    put(EllipseNode(Ellipse(kBox)), Effect::Shadow(0.6, 6, {6, 6}, true), Fill(glass));
    put(FancyRoundedRectNode(kBox, 0, 24, 24, 6), Effect::Glow(kAccent, 8, true, 2.5),
        Fill(kPaper));
    put(ShapeNode(drop()), Effect::Overlay(Color(1, 0, 0, 0.35)), Fill(kPaper));
    put(LineNode({0, 45}, {80, 5}),
        Effect::Trace(Stroke(kAccent, 3, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                             StrokeJoinStyle::RoundJoin, nullptr),
                      StrokeInsetType::Outer),
        Fill());
    TextNode misspelt("mispelt");
    misspelt.setFont(Vetra::Font("", 18));
    put(misspelt, Effect::Squiggly(Color(0.85, 0, 0)), Fill());
    sheet.nextRow();
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Sheet sheet;
    kinds(sheet);
    strokes(sheet);
    fills(sheet);
    families(sheet);
    contents(sheet);
    effects(sheet);

    constexpr double kScale = 2;
    QImage picture(1400, 1320, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    sheet.scene().render(picture, {},
                         {-20, -20, picture.width() / kScale, picture.height() / kScale});
    return picture.save(application.arguments().value(1, QStringLiteral("gallery.png"))) ? 0 : 1;
}
