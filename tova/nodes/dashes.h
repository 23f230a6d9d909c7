#pragma once

#include "tova/nodes/style/stroke.h"

#include <QPointF>
#include <QRectF>

#include <span>

class QPainterPath;

namespace Tova2 {

class Polylines;
struct Cubic;

/// Cuts outlines into the dashes of a stroke. A dash lies where the length from the start of its
/// outline puts it, whatever else of the outline is seen; those out of sight are passed by without
/// being counted one by one, so that an outline of any length takes no time for what nobody sees. A
/// solid line is one dash.
class Dashes {
public:
    /// `unit` is the length that patterns count in. Only dashes that touch `seen` are kept, which
    /// has to have room for the stroke. Curves are cut into chords that are off by `flatness`.
    Dashes(StrokeStyle style, double unit, const QRectF& seen, double flatness, Polylines& out);

    /// Begins an outline, after so much of its length.
    void moveTo(const QPointF& point, double lengthBefore = 0);
    void lineTo(const QPointF& point);
    void addLine(std::span<const QPointF> points, double lengthBefore = 0);
    /// Every subpath is an outline of its own.
    void addPath(const QPainterPath& path, double lengthBefore = 0);

private:
    void addCurve(Cubic rest);
    void addDashes(const QPointF& end, double length, double first, double last);

    std::span<const double> m_pattern; ///< drawn, left out, drawn and so on, in units
    double m_unit, m_period;
    QRectF m_seen;
    double m_flatness;
    Polylines& m_out;
    QPointF m_at;
    double m_length = 0;   ///< as far as there
    bool m_isOpen = false; ///< a dash has been kept that ends there, and may go on
};

} // namespace Tova2
