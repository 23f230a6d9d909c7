#pragma once

#include "nodes/linearpathnodeimpl.h"
#include "nodes/lineends.h"

#include "tova/nodes/cornerstyle.h"

namespace Tova2 {

class OpenLinearPathNodeImpl final : public LinearPathNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.OpenLinearPathNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    bool isa(const char* name) const override;
    LineEnds& ends() { return m_ends; }
    void setDecoration(LineEnds::Which which, const LineEndDecoration& decoration);
    void applyDecorations();
    CornerStyle cornerStyle() const { return m_cornerStyle; }
    void setCornerStyle(CornerStyle style);
    double cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(double radius);
    std::optional<DrawnPart> drawnPart() const override;
    DrawnSegment drawnSegment(const std::optional<DrawnPart>& part,
                              std::size_t segment) const override;
    bool usesPathForEffect() const { return m_usesPathForEffect; }
    void setUsesPathForEffect(bool uses);
    void paintSilhouette(PaintContext& context) const override;
    QByteArray silhouetteKey() const override;

protected:
    bool isClosed() const override { return false; }
    std::span<const QPointF> plainPoints() const override;
    Flattened flattened() const override;
    bool isCurved() const override;
    bool hasSmoothCorners(double width) const override;
    double slack() const override { return m_cornerRadius; }
    QPainterPath pathOf(const Range& range) const override;
    void pointsChanged() override { placeDecorations(); }

private:
    struct CutCorner;

    void finishDecorations(bool isDrawnElsewhere);
    void placeDecorations();
    LineTip tip(LineEnds::Which which) const;
    bool hasCutCorners() const;
    QPointF vertex(const DrawnPart& part, std::size_t index) const;
    std::optional<CutCorner> corner(const DrawnPart& part, std::size_t index) const;

    LineEnds m_ends;
    double m_cornerRadius = 4;
    CornerStyle m_cornerStyle = CornerStyle::Sharp;
    bool m_usesPathForEffect = false;
};

} // namespace Tova2
