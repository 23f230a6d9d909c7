#pragma once

#include "nodes/crossings/crossingmarks.h"
#include "nodes/pointthinner.h"
#include "nodes/polylines.h"

#include <QPainterPath>

#include <optional>
#include <span>

namespace Tova2 {

/// Gathers the lines that a path is drawn as, curves as chords that nobody can tell from them.
class LineCollector {
public:
    /// What it measures is asked for by dashes.
    LineCollector(Polylines& lines, const QTransform& toPixels, bool thinsOut, bool measures);

    /// Another line, after so much of the whole.
    void moveTo(const QPointF& point, double lengthBefore);
    void lineTo(const QPointF& point);
    /// Along a segment as far as its last mark. Arcs are lines of their own where they are drawn
    /// apart.
    void add(const CrossingMarks::Marked& marked);
    /// Lines as wide as this, in the path's units, fade at their marks instead of ending. A narrow
    /// one tapers off, a wide one becomes a line a pixel, of which less and less is there. Only an
    /// antialiased fill of flat ends shows either as a fade.
    void setFadingWidth(double width) { m_fadingWidth = width; }
    /// Where arcs go instead; null, as at first, for nowhere else.
    void setArcs(QPainterPath* arcs) { m_arcs = arcs; }
    void finish();

private:
    void begin(const QPointF& point);
    void flushThinner();
    void addFades(const CrossingMarks::Marked& marked, std::span<const CrossingMarks::Fade> fades);
    void addTapers(const CrossingMarks::Marked& marked, std::span<const CrossingMarks::Fade> fades);
    void addFade(const CrossingMarks::Marked& marked, const CrossingMarks::Fade& fade,
                 bool isFadingIn);
    void addArc(std::span<const CrossingMarks::Curve> curves);
    void keep(const QPointF& point);
    void measure(const QPointF& next);

    Polylines& m_lines;
    std::optional<PointThinner> m_thinner;
    double m_pixel, m_flatness; ///< in the path's units
    bool m_measures;
    double m_fadingWidth = 0; ///< 0 where nothing fades
    QPainterPath* m_arcs = nullptr;
    QPointF m_current;
    double m_length = 0;        ///< as far as the current point
    double m_lineStart = 0;     ///< of the line under way
    bool m_isLineNew = false;   ///< nothing of it has been kept
    Polylines::Tapers m_tapers; ///< of the next line that begins
    std::vector<QPointF> m_chords;
};

} // namespace Tova2
