#pragma once

#include "nodes/nodeimpl.h"

#include "tova/nodes/customnodepainter.h"

namespace Tova2 {

class CustomNodeImpl final : public NodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.CustomNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    CustomNodePainter* painter() const { return m_painter.get(); }
    void setPainter(CustomNodePainter* painter);
    void boundsChanging();

    QRectF geometryRect() const override { return geometryRectAt(1.0); }
    QRectF geometryRectAt(double viewScale) const override;
    bool geometryDependsOnScale() const override { return bool(m_painter); }
    /// The painter's rectangle holds all that it draws.
    QRectF strokedRect() const override { return geometryRect(); }
    double strokeReach() const override { return 0; }
    bool countsInBounds() const override { return bool(m_painter); }
    void noteBoundsKept() const override { m_isMistaken |= m_isAsked; }
    Bounds outline() const override;
    void paintNode(PaintContext& context) const override;
    bool hidesItsSilhouette() const override { return false; }
    bool isSilhouetteOfInk() const override { return false; }
    void paintSilhouette(PaintContext& context) const override;
    QPainterPath silhouetteOutline(double viewScale) const override;

protected:
    ~CustomNodeImpl() override;

private:
    using PaintCall = decltype(&CustomNodePainter::paint);

    void letGo(CustomNodePainter* painter) const;
    QRectF askForBounds(CustomNodePainter& painter, double viewScale) const;
    void paintThrough(PaintContext& context, PaintCall call) const;

    // Whoever calls it holds it for the time of the call, in which it may be replaced.
    Vetra::Holder<CustomNodePainter> m_painter;
    mutable bool m_isAsked = false;    ///< for bounds, and has not answered yet
    mutable bool m_isMistaken = false; ///< for empty, by a scene that asked meanwhile
};

} // namespace Tova2
