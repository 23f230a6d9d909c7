#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/textlayout.h"
#include "tova/nodes/textalignment.h"
#include "vetra/color.h"
#include "vetra/font.h"

#include <memory>
#include <string>

namespace Tova2 {

class TextNodeImpl final : public NodeImpl {
public:
    const char* typeName() const override { return "Tova2.TextNode"; }
    void inspect(Inspection& out) const override;

    const std::string& text() const { return m_text; }
    void setText(const std::string& text);
    const Vetra::Font& font() const { return m_font; }
    void setFont(const Vetra::Font& font);
    const Vetra::Color& color() const { return m_color; }
    void setColor(const Vetra::Color& color);
    HorizontalAlignment horizontalAlignment() const { return m_horizontal; }
    void setHorizontalAlignment(HorizontalAlignment alignment);
    VerticalAlignment verticalAlignment() const { return m_vertical; }
    void setVerticalAlignment(VerticalAlignment alignment);
    const QRectF& box() const { return m_box; }
    void setBox(const QRectF& box);
    QSizeF naturalSize() const { return layout().size(); }

    QRectF geometryRect() const override;
    /// No stroke of the draw style shows.
    double strokeReach() const override { return 0; }
    bool countsInBounds() const override { return !m_text.empty(); }
    Bounds outline() const override;
    void paintNode(PaintContext& context) const override;
    bool hidesItsSilhouette() const override { return m_color.alpha() == 255; }
    QPainterPath silhouetteOutline(double viewScale) const override;
    QByteArray silhouetteKey() const override;

private:
    const TextLayout& layout() const;
    QPointF origin() const;
    void paintBands(PaintContext& context, const QPointF& start, double pixels) const;
    template <class T>
    void change(T& member, const T& value);

    std::string m_text;
    Vetra::Font m_font;
    QRectF m_box;
    mutable std::unique_ptr<TextLayout> m_layout; // made on first need, null when out of date
    Vetra::Color m_color = Vetra::Color::fromPacked(0xff000000);
    HorizontalAlignment m_horizontal = HorizontalAlignment::Left;
    VerticalAlignment m_vertical = VerticalAlignment::Top;
};

} // namespace Tova2
