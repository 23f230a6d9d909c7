#pragma once

#include "tova/nodes/node.h"
#include "tova/nodes/textalignment.h"
#include "vetra/font.h"
#include "vetra/size.h"

#include <string>

namespace Tova2 {

class TextNodeImpl;

/// Plain text of one colour, in lines as the text itself breaks them. It is laid out once, free of
/// any device, so that its lines are as long, and its letters as far apart, at every zoom.
///
/// A font's size is in local units: text of 10 points has an em of 10 units. Neither stroke nor
/// fill of the draw style shows. Bounds hold the lines and all ink; a point hits the rectangle
/// around the lines. Empty text does not count in the bounds of a scene.
class TOVA_EXPORT TextNode : public Node {
public:
    TextNode();
    explicit TextNode(const std::string& text);
    explicit TextNode(TextNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit TextNode(NodeImpl* impl);

    /// In UTF-8, as it was set but for repairs.
    std::string getText() const;
    /// Bytes that are not UTF-8 become U+FFFD. Text beyond `Limits::textBytes` is cut and ends in
    /// an ellipsis; so is shown, but kept whole, a line beyond `Limits::textRun` and what is beyond
    /// `Limits::textLines`.
    void setText(const std::string& text);
    Vetra::Font getFont() const;
    void setFont(const Vetra::Font& font);
    /// Opaque black until set.
    Vetra::Color getColor() const;
    void setColor(const Vetra::Color& color);

    HorizontalAlignment getHorizontalAlignment() const;
    void setHorizontalAlignment(HorizontalAlignment alignment);
    VerticalAlignment getVerticalAlignment() const;
    void setVerticalAlignment(VerticalAlignment alignment);

    /// The box that the text is aligned in; it neither wraps nor cuts it. Without extent, as it is
    /// at first, text starts, ends or has its middle at the box's corner.
    Vetra::GLRect<double> getRect() const;
    void setRect(const Vetra::GLRect<double>& rect);

    /// Of all lines together, without what ink overhangs them. Nothing while the text is empty.
    Vetra::Size<double> getNaturalSize() const;

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    TextNodeImpl* getTextNodeImpl() const noexcept;
    TextNodeImpl* getValidTextNodeImpl() const;
};

} // namespace Tova2
