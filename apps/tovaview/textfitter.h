#pragma once

#include "diagram.h"

#include <tova/nodes/textnode.h>

namespace TovaView {

/// Finds where a text has to stand so that its baseline is where the layout put it, and how much it
/// has to be squeezed to be no wider than the room reserved for it: the layout may have measured
/// with other fonts.
class TextFitter {
public:
    explicit TextFitter(const TextPiece& text);

    /// What the text covers, in the coordinates of its anchor.
    Rect rect() const { return m_rect; }
    /// `origin` is where the parent's coordinates begin.
    Tova2::TextNode makeNode(const Point& origin) const;

private:
    const TextPiece& m_text;
    Rect m_rect;
    double m_squeeze = 1; ///< horizontal scale; 1 when the text is no wider than its room
};

/// Of the letters: spaces at either end need no room.
Rect inkOf(const TextPiece& text);

} // namespace TovaView
