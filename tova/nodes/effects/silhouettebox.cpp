#include "nodes/effects/silhouettebox.h"

#include "nodes/effects/silhouettestyle.h"
#include "nodes/pen.h"

#include <algorithm>

namespace Tova2 {

QPainterPath SilhouetteBox::path() const
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

SilhouetteBox SilhouetteBox::grown(double by) const
{
    const double least = std::max({by, -rect.width() / 2, -rect.height() / 2});
    return {rect.adjusted(-least, -least, least, least),
            radius > 0 ? std::max(0.0, radius + by) : 0};
}

SilhouetteBox SilhouetteBox::around(const QRectF& rect, double radius, const DrawStyle& style,
                                    double viewScale)
{
    const Stroke& stroke = style.stroke();
    if (!isStroked(stroke))
        return {rect, radius};
    const double half = drawnWidth(stroke, viewScale) / 2;
    const bool isRound = radius > 0 || stroke.joinStyle() == StrokeJoinStyle::RoundJoin;
    return {rect.adjusted(-half, -half, half, half), isRound ? radius + half : 0};
}

std::optional<SilhouetteBox> SilhouetteBox::filling(const QRectF& rect, double radius,
                                                    const DrawStyle& style, double viewScale)
{
    const Stroke& stroke = style.stroke();
    const bool hasGaps = isStroked(stroke) && (stroke.style() != StrokeStyle::SolidLine ||
                                               stroke.joinStyle() == StrokeJoinStyle::BevelJoin);
    if (rect.isEmpty() || hasGaps || !isFilled(style.fill()))
        return {};
    return around(rect, radius, style, viewScale);
}

} // namespace Tova2
