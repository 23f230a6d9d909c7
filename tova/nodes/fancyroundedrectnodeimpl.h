#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/outlinecorners.h"
#include "nodes/values.h"

namespace Tova2 {

class FancyRoundedRectNodeImpl final : public NodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.FancyRoundedRectNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    const QRectF& rect() const { return m_given.rect; }
    void setRect(const QRectF& rect);
    double radius(Corner corner) const { return m_given.radii[static_cast<std::size_t>(corner)]; }
    void setRadius(Corner corner, double radius);

    QRectF geometryRect() const override { return m_given.rect; }
    bool hasOutline() const override { return isDrawable(m_given.rect); }
    double strokeReach() const override;
    Bounds outline() const override;
    bool outlineContains(const QPointF& point) const override;
    void paintNode(PaintContext& context) const override;
    QByteArray silhouetteKey() const override;

protected:
    void dropCaches(ChangeLevel level) override;

private:
    CorneredRect outlineShape() const;

    CorneredRect m_given;
    mutable QPainterPath m_path; ///< what is drawn; empty until it is asked for
};

} // namespace Tova2
