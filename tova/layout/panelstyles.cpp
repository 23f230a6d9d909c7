#include "layout/panelstyles.h"

namespace Tova2 {

namespace {

using Vetra::Color;
using PanelStyle = AutoLayoutPanel::PanelStyle;

/// A ramp from the top to the bottom, and the hairline around it.
struct Look {
    Color top, bottom, border;
};

DrawStyle drawn(const Look& look)
{
    auto ramp = Vetra::Gradient::linear({0, 0}, {0, 1});
    ramp.setCoordinateMode(Vetra::Gradient::CoordinateMode::ObjectBounding);
    ramp.addStop(0, look.top);
    ramp.addStop(1, look.bottom);
    Stroke hairline(StrokeStyle::SolidLine);
    hairline.setColor(look.border);
    return DrawStyle(hairline, Fill(ramp));
}

DrawStyle lookOf(PanelStyle style)
{
    switch (style) {
    case PanelStyle::BlackTranslucent:
        return drawn(
            {Color(0.22, 0.23, 0.27, 0.80), Color(0.06, 0.06, 0.09, 0.86), Color(1, 1, 1, 0.28)});
    case PanelStyle::RedTranslucent:
        return drawn({Color(0.86, 0.25, 0.22, 0.76), Color(0.60, 0.08, 0.08, 0.84),
                      Color(1, 0.82, 0.80, 0.45)});
    case PanelStyle::YellowTranslucent:
        return drawn({Color(1, 0.96, 0.72, 0.80), Color(0.98, 0.84, 0.38, 0.84),
                      Color(0.62, 0.46, 0.05, 0.55)});
    case PanelStyle::RoseTranslucent:
        return drawn({Color(1, 0.90, 0.93, 0.78), Color(0.95, 0.68, 0.77, 0.84),
                      Color(0.62, 0.22, 0.36, 0.50)});
    case PanelStyle::RedSolidGradient:
        return drawn({Color(0.90, 0.32, 0.28), Color(0.62, 0.09, 0.09), Color(0.42, 0.03, 0.04)});
    case PanelStyle::NoBackground:
        break;
    }
    return DrawStyle(Stroke::NoStroke(), Fill::NoFill());
}

} // namespace

DrawStyle drawStyleOf(PanelStyle style)
{
    DrawStyle drawStyle = lookOf(style);
    drawStyle.setIsAntiAliased(true);
    drawStyle.setIsPixelAligned(true);
    return drawStyle;
}

} // namespace Tova2
