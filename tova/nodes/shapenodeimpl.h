#pragma once

#include "nodes/nodeimpl.h"

#include "vetra/shape.h"

namespace Tova2 {

class ShapeNodeImpl final : public NodeImpl {
public:
    ShapeNodeImpl();
    ~ShapeNodeImpl() override;

    static constexpr const char* kTypeName = "Tova2.ShapeNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    const Vetra::Shape& figure() const { return m_figure; }
    void setFigure(const Vetra::Shape& figure);

    QRectF geometryRect() const override;
    bool hasOutline() const override;
    QRectF strokedRect() const override;
    double strokeReach() const override;
    Bounds outline() const override;
    bool outlineContains(const QPointF& point) const override;
    bool outlineIntersects(const Bounds& area) const override;
    void paintNode(PaintContext& context) const override;
    QPainterPath silhouetteOutline(double viewScale) const override;
    QByteArray silhouetteKey() const override;

protected:
    void dropCaches(ChangeLevel level) override;

private:
    struct Measures;
    const Measures& measures() const;
    bool isFilled() const;

    Vetra::Shape m_figure;
    mutable std::unique_ptr<Measures> m_measures; ///< made when first asked for
};

} // namespace Tova2
