#include "looks/sheet.h"

namespace Tova2::Looks {

namespace {

const Vetra::Color kInk(0.15, 0.2, 0.35);

Stroke line(double width, StrokeStyle style = StrokeStyle::SolidLine,
            StrokeCapStyle cap = StrokeCapStyle::FlatCap,
            StrokeJoinStyle join = StrokeJoinStyle::MiterJoin, const LodScale* scale = nullptr)
{
    return Stroke(kInk, width, style, cap, join, scale);
}

Node horizontal(const Stroke& stroke, double y)
{
    return styled(LineNode({10, y}, {66, y}), smooth(stroke, Fill()));
}

const char* const kStyles[] = {"dashes", "dots", "dash dot", "dash dot dot"};
const char* const kJoins[] = {"mitre join", "bevel join", "round join", "svg mitre join"};

/// Thin and wide, each with the three caps.
Cell dashes(int style)
{
    std::vector<Node> nodes;
    for (int cap = 0; cap < 3; ++cap) {
        const auto capStyle = static_cast<StrokeCapStyle>(cap);
        const auto strokeStyle = static_cast<StrokeStyle>(style + 2);
        nodes.push_back(horizontal(line(1, strokeStyle, capStyle), 6 + 15 * cap));
        nodes.push_back(horizontal(line(4, strokeStyle, capStyle), 12 + 15 * cap));
    }
    return cellOf(kStyles[style], nodes);
}

Cell caps()
{
    return cellOf("caps",
                  {horizontal(line(8, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap), 9),
                   horizontal(line(8, StrokeStyle::SolidLine, StrokeCapStyle::SquareCap), 24),
                   horizontal(line(8, StrokeStyle::SolidLine, StrokeCapStyle::RoundCap), 39)});
}

Cell widths(const char* caption, double first, double factor, bool isSlanted)
{
    std::vector<Node> nodes;
    double width = first, y = 5;
    for (int i = 0; i < 5; ++i, width *= factor, y += 9) {
        LineNode node({8, y}, {68, y + (isSlanted ? 4 : 0)});
        nodes.push_back(styled(node, smooth(line(width), Fill())));
    }
    return cellOf(caption, nodes);
}

Cell joins(int join)
{
    const auto style = static_cast<StrokeJoinStyle>(join);
    const Stroke wide = line(7, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap, style);
    const std::vector<Point> corners{{10, 38}, {22, 16}, {36, 36}, {44, 16}, {52, 36}, {66, 28}};
    return cellOf(kJoins[join], {styled(OpenLinearPathNode(corners), smooth(wide, Fill()))});
}

Cell aligned(const char* caption, double width, bool isAligned)
{
    DrawStyle style = smooth(line(width), Fill(Vetra::Color(0.85, 0.9, 1)));
    style.setIsPixelAligned(isAligned);
    return cellOf(caption, {styled(RectNode({8.3, 8.4, 26.6, 33.3}), style),
                            styled(EllipseNode(Ellipse({42.3, 8.4, 26.6, 33.3})), style)});
}

Cell closed(const char* caption, const Stroke& stroke)
{
    return cellOf(caption, {styled(RoundedRectNode({6, 8, 28, 34}, 8), smooth(stroke, Fill())),
                            styled(EllipseNode(Ellipse({42, 8, 28, 34})), smooth(stroke, Fill()))});
}

Cell curve(const char* caption, const Stroke& stroke)
{
    const std::vector<Vertex> vertices{{{8, 40}, {8, -30}, {0, 0}},
                                       {{38, 25}, {14, 22}, {-14, -22}},
                                       {{68, 10}, {0, 0}, {-8, 30}}};
    return cellOf(caption, {styled(OpenCurvedPathNode(vertices), smooth(stroke, Fill()))});
}

Cell scaled(const char* caption, LodScaleKind kind, double zoom)
{
    const Stroke stroke = line(3, StrokeStyle::DashLine, StrokeCapStyle::FlatCap,
                               StrokeJoinStyle::MiterJoin, lodScaleOfKind(kind));
    const Rect box{kBox.x / zoom, kBox.y / zoom, kBox.width / zoom, kBox.height / zoom};
    return cellOf(caption, {styled(RectNode(box), smooth(stroke, Fill()))}, zoom);
}

Cell translucent()
{
    Stroke stroke = line(9);
    stroke.setColor(Vetra::Color(0.8, 0.1, 0.1, 0.5));
    const std::vector<Point> crossing{{10, 12}, {60, 12}, {60, 38}, {30, 38}, {30, 4}};
    return cellOf("translucent", {styled(OpenLinearPathNode(crossing), smooth(stroke, Fill()))});
}

} // namespace

Cells strokeCells()
{
    Cells cells;
    for (int style = 0; style < 4; ++style)
        cells.push_back(dashes(style));
    cells.push_back(caps());
    for (int join = 0; join < 4; ++join)
        cells.push_back(joins(join));
    cells.push_back(translucent());
    cells.push_back(widths("0.25 to 4", 0.25, 2, false));
    cells.push_back(widths("slanted", 0.25, 2, true));
    cells.push_back(widths("cosmetic", 0, 1, true));
    cells.push_back(curve("curve", line(2)));
    cells.push_back(curve("dashed curve", line(3, StrokeStyle::DashLine)));
    cells.push_back(closed("closed", line(5)));
    cells.push_back(closed("closed dots", line(3, StrokeStyle::DotLine, StrokeCapStyle::RoundCap)));
    cells.push_back(aligned("1 unaligned", 1, false));
    cells.push_back(aligned("1 aligned", 1, true));
    cells.push_back(aligned("2 aligned", 2, true));
    cells.push_back(aligned("cosmetic aligned", 0, true));
    cells.push_back(scaled("dashes x3", LodScaleKind::None, 3));
    cells.push_back(scaled("constant x3", LodScaleKind::Constant, 3));
    cells.push_back(scaled("constant x0.3", LodScaleKind::Constant, 0.3));
    cells.push_back(scaled("linear x0.3", LodScaleKind::None, 0.3));
    return cells;
}

} // namespace Tova2::Looks
