#include "vetra/gradient.h"

#include "vetra/referenced.h"

#include <algorithm>
#include <cmath>

namespace Vetra {

namespace {

bool isFinite(const GLPoint<double>& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

} // namespace

struct Gradient::Record : Referenced {
    Type type = Type::Linear;
    Spread spread = Spread::Pad;
    CoordinateMode mode = CoordinateMode::Logical;
    GLPoint<double> start, end{1, 1};
    double measure = 0; // the radius of a radial, the angle of a conical gradient
    std::vector<Stop> stops;

    Record() = default;
    Record(Type kind, const GLPoint<double>& from, const GLPoint<double>& to, double value)
        : type(kind), start(from), end(to), measure(value)
    {}
    bool operator==(const Record& r) const
    {
        return type == r.type && spread == r.spread && mode == r.mode && start == r.start &&
               end == r.end && measure == r.measure && stops == r.stops;
    }
};

Gradient Gradient::linear(const GLPoint<double>& start, const GLPoint<double>& end)
{
    if (!isFinite(start) || !isFinite(end))
        return {};
    return Gradient(new Record(Type::Linear, start, end, 0));
}

Gradient Gradient::radial(const GLPoint<double>& center, double radius)
{
    return radial(center, radius, center);
}

Gradient Gradient::radial(const GLPoint<double>& center, double radius,
                          const GLPoint<double>& focalPoint)
{
    if (!isFinite(center) || !isFinite(focalPoint) || !std::isfinite(radius) || radius <= 0)
        return {};
    return Gradient(new Record(Type::Radial, center, focalPoint, radius));
}

Gradient Gradient::conical(const GLPoint<double>& center, double angle)
{
    if (!isFinite(center) || !std::isfinite(angle))
        return {};
    return Gradient(new Record(Type::Conical, center, center, angle));
}

bool Gradient::isEmpty() const noexcept
{
    return !m_record || m_record->stops.empty();
}

const std::vector<Gradient::Stop>& Gradient::stops() const noexcept
{
    return record().stops;
}

void Gradient::addStop(double offset, const Color& color)
{
    // Not `offset < 0 || offset > 1`: NaN has to be dropped as well.
    if (!(offset >= 0 && offset <= 1))
        return;
    auto& stops = detach().stops;
    const auto at = std::lower_bound(stops.begin(), stops.end(), offset,
                                     [](const Stop& stop, double o) { return stop.offset < o; });
    if (at != stops.end() && at->offset == offset)
        at->color = color;
    else
        stops.insert(at, {offset, color});
}

void Gradient::setStops(const std::vector<Stop>& stops)
{
    // The argument may be our own list.
    const auto wanted = stops;
    if (!isEmpty())
        detach().stops.clear();
    for (const auto& stop : wanted)
        addStop(stop.offset, stop.color);
}

Gradient::Type Gradient::type() const noexcept
{
    return record().type;
}

Gradient::Spread Gradient::spread() const noexcept
{
    return record().spread;
}

void Gradient::setSpread(Spread spread)
{
    if (spread != record().spread)
        detach().spread = spread;
}

Gradient::CoordinateMode Gradient::coordinateMode() const noexcept
{
    return record().mode;
}

void Gradient::setCoordinateMode(CoordinateMode mode)
{
    if (mode != record().mode)
        detach().mode = mode;
}

GLPoint<double> Gradient::start() const noexcept
{
    return record().start;
}

GLPoint<double> Gradient::end() const noexcept
{
    return record().end;
}

double Gradient::radius() const noexcept
{
    return type() == Type::Radial ? record().measure : 0;
}

double Gradient::angle() const noexcept
{
    return type() == Type::Conical ? record().measure : 0;
}

void Gradient::reference() const noexcept
{
    m_record->increment();
}

void Gradient::unreference() noexcept
{
    std::exchange(m_record, nullptr)->unreference();
}

bool Gradient::equals(const Gradient& other) const noexcept
{
    return record() == other.record();
}

const Gradient::Record& Gradient::record() const noexcept
{
    static const Record none;
    return m_record ? *m_record : none;
}

Gradient::Record& Gradient::detach()
{
    if (!m_record || m_record->referenceCount() > 1)
        *this = Gradient(new Record(record()));
    return *m_record;
}

} // namespace Vetra
