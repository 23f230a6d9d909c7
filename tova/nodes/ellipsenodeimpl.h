#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/values.h"

namespace Tova2 {

class LodScale;

class EllipseNodeImpl final : public NodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.EllipseNode";

    const char* typeName() const override { return kTypeName; }
    const QRectF& rect() const { return m_rect; }
    void setRect(const QRectF& rect);
    void setCenter(const QPointF& center);
    void setSize(const QSizeF& size);
    void setWidth(double width);
    void setHeight(double height);
    void setLodScale(const LodScale* scale);
    void setWidthToPixelAlignCenter(double width);

    QRectF geometryRect() const override { return m_lodScale ? geometryRectAt(1.0) : m_rect; }
    QRectF geometryRectAt(double viewScale) const override;
    bool hasOutline() const override { return isDrawable(geometryRect()); }
    bool geometryDependsOnScale() const override { return m_lodScale != nullptr; }
    double strokeReach() const override;
    Bounds outline() const override;
    bool outlineContains(const QPointF& point) const override;
    void paintNode(PaintContext& context) const override;
    QPainterPath silhouetteOutline(double viewScale) const override;
    QByteArray silhouetteKey() const override;

private:
    QRectF centerAligned(const QRectF& rect) const;

    static constexpr double kUnaligned = -1.0;

    QRectF m_rect;
    const LodScale* m_lodScale = nullptr;
    double m_widthToPixelAlignCenter = kUnaligned;
};

} // namespace Tova2
