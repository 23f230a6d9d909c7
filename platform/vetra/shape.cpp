#include "vetra/shape.h"

#include "vetra/qt.h"
#include "vetra/referenced.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace Vetra {

namespace {

template <class... Numbers>
bool areFinite(Numbers... numbers)
{
    return (std::isfinite(numbers) && ...);
}

bool isFinite(const GLPoint<double>& p)
{
    return areFinite(p.x, p.y);
}

bool isFinite(const GLRect<double>& r)
{
    // The far corner as well: it can overflow where the fields do not.
    return areFinite(r.x, r.y, r.width, r.height, r.right(), r.bottom());
}

bool isFinite(const QPainterPath& path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        if (!areFinite(path.elementAt(i).x, path.elementAt(i).y))
            return false;
    }
    return true;
}

bool isSame(const QPainterPath::Element& a, const QPainterPath::Element& b)
{
    return a.type == b.type && a.x == b.x && a.y == b.y;
}

} // namespace

struct Shape::Record : Referenced {
    Record() = default;
    explicit Record(const QPainterPath& from) : path(from) {}
    QPainterPath path;
};

void Shape::moveTo(const GLPoint<double>& p)
{
    if (isFinite(p))
        detach().moveTo(toQt(p));
}

void Shape::lineTo(const GLPoint<double>& p)
{
    if (isFinite(p))
        detach().lineTo(toQt(p));
}

void Shape::quadTo(const GLPoint<double>& control, const GLPoint<double>& end)
{
    // Raised to a cubic here: the toolkit's own formula overflows within the range of finite
    // numbers.
    const auto start = fromQt(path().currentPosition());
    cubicTo(start + (control - start) * (2.0 / 3), end + (control - end) * (2.0 / 3), end);
}

void Shape::cubicTo(const GLPoint<double>& control1, const GLPoint<double>& control2,
                    const GLPoint<double>& end)
{
    if (isFinite(control1) && isFinite(control2) && isFinite(end))
        detach().cubicTo(toQt(control1), toQt(control2), toQt(end));
}

void Shape::arcTo(const GLRect<double>& oval, double startAngle, double sweepAngle)
{
    // The toolkit counts quarter turns from the start angle in an int.
    if (isFinite(oval) && areFinite(startAngle, sweepAngle))
        detach().arcTo(toQt(oval), std::fmod(startAngle, 360.0),
                       std::clamp(sweepAngle, -360.0, 360.0));
}

void Shape::closeSubpath()
{
    if (!isEmpty())
        detach().closeSubpath();
}

void Shape::addRect(const GLRect<double>& rect)
{
    if (isFinite(rect))
        detach().addRect(toQt(rect));
}

void Shape::addRoundedRect(const GLRect<double>& rect, double radiusX, double radiusY)
{
    if (isFinite(rect) && areFinite(radiusX, radiusY))
        detach().addRoundedRect(toQt(rect), radiusX, radiusY);
}

void Shape::addEllipse(const GLRect<double>& rect)
{
    if (isFinite(rect))
        detach().addEllipse(toQt(rect));
}

void Shape::addPolygon(const std::vector<GLPoint<double>>& points, bool closed)
{
    bool begun = false;
    for (const auto& p : points) {
        if (!isFinite(p))
            continue;
        begun ? lineTo(p) : moveTo(p);
        begun = true;
    }
    if (begun && closed)
        closeSubpath();
}

void Shape::addShape(const Shape& other)
{
    // The copy keeps the path alive and unchanged when a shape is added to itself.
    const QPainterPath added = other.path();
    if (!added.isEmpty())
        detach().addPath(added);
}

Shape::FillRule Shape::fillRule() const noexcept
{
    return path().fillRule() == Qt::WindingFill ? FillRule::Winding : FillRule::OddEven;
}

void Shape::setFillRule(FillRule rule)
{
    if (rule != fillRule())
        detach().setFillRule(rule == FillRule::Winding ? Qt::WindingFill : Qt::OddEvenFill);
}

bool Shape::isEmpty() const noexcept
{
    return path().isEmpty();
}

std::vector<Shape::Element> Shape::elements() const
{
    static_assert(int(ElementType::CubicData) == QPainterPath::CurveToDataElement);
    const QPainterPath& all = path();
    std::vector<Element> result;
    result.reserve(all.elementCount());
    for (int i = 0; i < all.elementCount(); ++i) {
        const auto element = all.elementAt(i);
        result.push_back({static_cast<ElementType>(element.type), {element.x, element.y}});
    }
    return result;
}

GLRect<double> Shape::boundingRect() const
{
    return fromQt(path().boundingRect());
}

Shape Shape::transformed(const Transform& transform) const
{
    return isEmpty() ? *this : fromQt(toQt(transform).map(path()));
}

bool Shape::contains(const GLPoint<double>& p) const
{
    return isFinite(p) && path().contains(toQt(p));
}

void Shape::reference() const noexcept
{
    m_record->increment();
}

void Shape::unreference() noexcept
{
    std::exchange(m_record, nullptr)->unreference();
}

bool Shape::equals(const Shape& other) const noexcept
{
    // Not the path's own comparison, which is fuzzy in proportion to its size.
    const QPainterPath &a = path(), &b = other.path();
    if (a.elementCount() != b.elementCount() || a.fillRule() != b.fillRule())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        if (!isSame(a.elementAt(i), b.elementAt(i)))
            return false;
    }
    return true;
}

const QPainterPath& Shape::path() const noexcept
{
    static const QPainterPath none;
    return m_record ? m_record->path : none;
}

QPainterPath& Shape::detach()
{
    if (!m_record || m_record->referenceCount() > 1) {
        Shape own;
        own.m_record = new Record(path());
        own.acquire();
        std::swap(m_record, own.m_record);
    }
    return m_record->path;
}

QPainterPath toQt(const Shape& shape)
{
    return shape.path();
}

Shape fromQt(const QPainterPath& path)
{
    Shape shape;
    if (isFinite(path))
        shape.detach() = path;
    return shape;
}

} // namespace Vetra
