#pragma once

#include "nodes/lineends.h"
#include "nodes/nodeimpl.h"

#include <QLineF>

namespace Tova2 {

class LineNodeImpl final : public NodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.LineNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    const QLineF& line() const { return m_line; }
    void setLine(const QLineF& line);
    LineEnds& ends() { return m_ends; }
    void setDecoration(LineEnds::Which which, const LineEndDecoration& decoration);
    void applyDecorations();

    QRectF geometryRect() const override;
    bool hasOutline() const override { return isDrawn(); }
    double strokeReach() const override;
    Bounds outline() const override;
    bool outlineContains(const QPointF& point) const override;
    bool outlineIntersects(const Bounds& area) const override;
    void paintNode(PaintContext& context) const override;
    QPainterPath silhouetteOutline(double viewScale) const override;
    QByteArray silhouetteKey() const override;

private:
    /// The line with its stroke as a rectangle along it, with a half circle at either end where
    /// caps are round.
    struct Band {
        QPointF along;
        double first, last; ///< along the line from its start
        double half;        ///< of its width
        bool isRound;
    };
    Band band() const;
    QLineF middleOf(const Band& band) const;
    void finishDecorations(bool isDrawnElsewhere);
    void placeDecorations();
    /// False without a stroke, and where decorations take the place of the whole line.
    bool isDrawn() const;

    QLineF m_line;
    LineEnds m_ends;
};

} // namespace Tova2
