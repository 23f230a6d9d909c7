#include "looks/sheet.h"

namespace Tova2::Looks {

namespace {

using Vetra::Color;
using PanelStyle = AutoLayoutPanel::PanelStyle;

RectNode filled(const Rect& rect, const Color& color)
{
    return styled(RectNode(rect), smooth(Stroke::NoStroke(), Fill(color)));
}

std::vector<Node> ground(int kind)
{
    if (kind < 2)
        return {filled({0, 0, kCellWidth, kCellHeight},
                       kind == 0 ? Color(1, 1, 1) : Color(0.08, 0.09, 0.12))};
    std::vector<Node> stripes;
    for (int i = 0; i < 10; ++i)
        stripes.push_back(filled({i * 8.0, i % 3 * 7.0, 5, 36},
                                 Color(0.1 * (i % 4), 0.35 + 0.06 * i, 0.95 - 0.09 * i)));
    return stripes;
}

Vetra::Holder<AutoLayoutPanel> panelOf(PanelStyle style)
{
    Vetra::Holder<AutoLayoutPanel> panel(new AutoLayoutPanel);
    panel->setPanelStyle(style);
    panel->setVAlign(VerticalAlignment::Bottom);
    panel->setExpandMode(AutoLayoutPanel::ExpandMode::None);
    panel->setSize({54, 0});
    panel->setPadding(4);
    panel->setPosition({8, 7});
    Stroke outline(StrokeStyle::SolidLine);
    outline.setColor(Color(0.15, 0.15, 0.2));
    for (int i = 0; i < 6; ++i)
        panel->addNode(styled(EllipseNode(Ellipse({0, 0, 12, 12})),
                              smooth(outline, Fill(Color(1, 1, 1, 0.85)))));
    return panel;
}

} // namespace

Cells panelCells()
{
    static const char* const grounds[] = {"light", "dark", "busy"};
    static const char* const names[] = {"none", "black", "red", "yellow", "rose", "solid red"};
    // Panels leave their scenes when they go.
    static std::vector<Vetra::Holder<AutoLayoutPanel>> panels;
    panels.clear();
    Cells cells;
    for (int kind = 0; kind < 3; ++kind) {
        for (int style = 0; style < 6; ++style) {
            cells.push_back(cellOf(std::string(names[style]) + ", " + grounds[kind], ground(kind)));
            panels.push_back(panelOf(PanelStyle(style)));
            panels.back()->installOnSceneForStaticRender(cells.back().scene.get());
        }
    }
    return cells;
}

} // namespace Tova2::Looks
