#pragma once

#include "tova/nodes/textalignment.h"
#include "vetra/font.h"

#include <QGlyphRun>
#include <QPainterPath>
#include <QRectF>

#include <string>
#include <vector>

class QColor;
class QPainter;
class QTransform;

namespace Tova2 {

/// Lines of text put into glyphs, once for all zooms. It is made at a large size of the font
/// without hinting, where advances are exact, and scaled when drawn. The first line's top left
/// corner is the origin; lengths are in local units, of which the font's size is one em.
class TextLayout {
public:
    /// `text` has been accepted. Nothing shows while there is no GUI application object.
    TextLayout(const std::string& text, const Vetra::Font& font, HorizontalAlignment alignment);

    /// Around all lines.
    const QSizeF& size() const { return m_size; }
    /// The lines, and what of the glyphs overhangs them.
    const QRectF& inkRect() const { return m_inkRect; }
    /// Where the small letters of each line stand, for text that is only hinted at.
    const std::vector<QRectF>& bands() const { return m_bands; }
    /// `toDevice` maps this layout's coordinates. Leaves the painter with another transform, pen
    /// and antialiasing.
    void draw(QPainter& painter, const QColor& color, const QTransform& toDevice) const;

    /// Of all that shows, as areas.
    QPainterPath outline() const;

private:
    void addRun(const QGlyphRun& run, const QPointF& start);
    void measure(const QSizeF& lines);
    const QPainterPath& outlines() const;

    // At the reference size.
    std::vector<QGlyphRun> m_runs;
    std::vector<QRectF> m_underlines;
    mutable QPainterPath m_outlines; ///< of the runs; made on first need
    double m_scale = 1;              ///< from there to local units

    QSizeF m_size{0, 0};
    QRectF m_inkRect;
    std::vector<QRectF> m_bands;
};

} // namespace Tova2
