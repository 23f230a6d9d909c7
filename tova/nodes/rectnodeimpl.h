#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/values.h"

namespace Tova2 {

class RectNodeImpl final : public NodeImpl {
public:
    explicit RectNodeImpl(const QRectF& rect = {}) : m_rect(rect) {}

    const char* typeName() const override { return "Tova2.RectNode"; }
    const QRectF& rect() const { return m_rect; }
    void setRect(const QRectF& rect);

    QRectF geometryRect() const override { return m_rect; }
    bool hasOutline() const override { return isDrawable(m_rect); }
    Bounds outline() const override;
    void paintNode(PaintContext& context) const override;
    QPainterPath silhouetteOutline(double viewScale) const override;
    std::optional<SilhouetteBox> silhouetteBox(double viewScale) const override;
    QByteArray silhouetteKey() const override;

private:
    QRectF m_rect;
};

} // namespace Tova2
