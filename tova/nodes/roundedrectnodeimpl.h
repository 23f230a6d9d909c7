#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/values.h"

namespace Tova2 {

class RoundedRectNodeImpl final : public NodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.RoundedRectNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    const QRectF& rect() const { return m_rect; }
    void setRect(const QRectF& rect);
    double radius() const { return m_radius; }
    void setRadius(double radius);

    QRectF geometryRect() const override { return m_rect; }
    bool hasOutline() const override { return isDrawable(m_rect); }
    double strokeReach() const override;
    Bounds outline() const override;
    bool outlineContains(const QPointF& point) const override;
    void paintNode(PaintContext& context) const override;
    QPainterPath silhouetteOutline(double viewScale) const override;
    std::optional<SilhouetteBox> silhouetteBox(double viewScale) const override;
    QByteArray silhouetteKey() const override;

private:
    double drawnRadius() const;
    RoundedRect outlineShape() const;

    QRectF m_rect;
    double m_radius = 0;
};

} // namespace Tova2
