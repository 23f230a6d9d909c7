#pragma once

#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/transform.h"
#include "vetra/vetra_export.h"

#include <utility>
#include <vector>

class QPainterPath;

namespace Vetra {

/// A path of lines and cubic curves in one or more subpaths. Copies share the path until one of
/// them is changed. A call with a coordinate that is not finite has no effect, so a shape is always
/// finite.
class VETRA_EXPORT Shape {
public:
    enum class FillRule { OddEven, Winding };

    /// A curve is one `CubicTo` (first control point) and two `CubicData` (second control point,
    /// end point).
    enum class ElementType { MoveTo, LineTo, CubicTo, CubicData };
    /// A step of the path, where one ends and the next begins included.
    struct Element {
        ElementType type = ElementType::MoveTo;
        GLPoint<double> point;
        bool operator==(const Element&) const = default;
    };

    Shape() noexcept = default;
    Shape(const Shape& other) noexcept : m_record(other.m_record) { acquire(); }
    Shape(Shape&& other) noexcept : m_record(std::exchange(other.m_record, nullptr)) {}
    ~Shape() { release(); }
    Shape& operator=(Shape other) noexcept
    {
        std::swap(m_record, other.m_record);
        return *this;
    }

    void moveTo(const GLPoint<double>& p);
    /// On an empty shape the lines and curves begin at (0, 0).
    void lineTo(const GLPoint<double>& p);
    void quadTo(const GLPoint<double>& control, const GLPoint<double>& end);
    void cubicTo(const GLPoint<double>& control1, const GLPoint<double>& control2,
                 const GLPoint<double>& end);
    /// Angles in degrees, counter-clockwise from three o'clock; a line joins the arc's start.
    void arcTo(const GLRect<double>& oval, double startAngle, double sweepAngle);
    void closeSubpath();

    void addRect(const GLRect<double>& rect);
    /// Radii in the shape's units; at most half the side is used.
    void addRoundedRect(const GLRect<double>& rect, double radiusX, double radiusY);
    void addEllipse(const GLRect<double>& rect);
    void addPolygon(const std::vector<GLPoint<double>>& points, bool closed = true);
    /// The other shape's subpaths; its fill rule does not count.
    void addShape(const Shape& other);

    FillRule fillRule() const noexcept; ///< odd-even by default
    void setFillRule(FillRule rule);

    /// Nothing that could be painted: no element, or a lone start point.
    bool isEmpty() const noexcept;
    std::vector<Element> elements() const;
    /// Of the outline itself, control points left out.
    GLRect<double> boundingRect() const;
    /// The empty shape if a mapped point would not be finite.
    Shape transformed(const Transform& transform) const;
    /// By the fill rule; open subpaths count as closed.
    bool contains(const GLPoint<double>& p) const;

    /// Exact: the fill rule and every element.
    bool operator==(const Shape& other) const noexcept
    {
        return m_record == other.m_record || equals(other);
    }

private:
    struct Record;
    friend VETRA_EXPORT QPainterPath toQt(const Shape& shape);
    friend VETRA_EXPORT Shape fromQt(const QPainterPath& path);

    void acquire() const noexcept
    {
        if (m_record)
            reference();
    }
    void release() noexcept
    {
        if (m_record)
            unreference();
    }
    void reference() const noexcept;
    void unreference() noexcept;
    bool equals(const Shape& other) const noexcept;
    const QPainterPath& path() const noexcept;
    QPainterPath& detach();

    Record* m_record = nullptr;
};

} // namespace Vetra
