#include "vetra/qt.h"

#include <QGradient>

#include <optional>

namespace Vetra {

namespace {

QGradient makeQtGradient(const Gradient& gradient)
{
    // The toolkit's kinds add no data of their own, so that slicing loses nothing.
    switch (gradient.type()) {
    case Gradient::Type::Radial:
        return QRadialGradient(toQt(gradient.center()), gradient.radius(),
                               toQt(gradient.focalPoint()));
    case Gradient::Type::Conical:
        return QConicalGradient(toQt(gradient.center()), gradient.angle());
    case Gradient::Type::Linear:
        break;
    }
    return QLinearGradient(toQt(gradient.start()), toQt(gradient.end()));
}

// None where the factory refused what it was given.
std::optional<Gradient> ifKept(const Gradient& made, Gradient::Type type, const QPointF& start,
                               const QPointF& end)
{
    const bool kept =
        made.type() == type && made.start() == fromQt(start) && made.end() == fromQt(end);
    return kept ? std::optional(made) : std::nullopt;
}

std::optional<Gradient> makeGradient(const QGradient& from)
{
    switch (from.type()) {
    case QGradient::LinearGradient: {
        const auto& linear = static_cast<const QLinearGradient&>(from);
        return ifKept(Gradient::linear(fromQt(linear.start()), fromQt(linear.finalStop())),
                      Gradient::Type::Linear, linear.start(), linear.finalStop());
    }
    case QGradient::RadialGradient: {
        const auto& radial = static_cast<const QRadialGradient&>(from);
        return ifKept(
            Gradient::radial(fromQt(radial.center()), radial.radius(), fromQt(radial.focalPoint())),
            Gradient::Type::Radial, radial.center(), radial.focalPoint());
    }
    case QGradient::ConicalGradient: {
        const auto& conical = static_cast<const QConicalGradient&>(from);
        return ifKept(Gradient::conical(fromQt(conical.center()), conical.angle()),
                      Gradient::Type::Conical, conical.center(), conical.center());
    }
    case QGradient::NoGradient:
        break;
    }
    return std::nullopt;
}

QGradient::CoordinateMode toQt(Gradient::CoordinateMode mode)
{
    switch (mode) {
    case Gradient::CoordinateMode::StretchToDevice:
        return QGradient::StretchToDeviceMode;
    case Gradient::CoordinateMode::ObjectBounding:
        // The older bounding mode of the toolkit ignores the transform of a brush.
        return QGradient::ObjectMode;
    case Gradient::CoordinateMode::Logical:
        break;
    }
    return QGradient::LogicalMode;
}

Gradient::CoordinateMode fromQt(QGradient::CoordinateMode mode)
{
    switch (mode) {
    case QGradient::StretchToDeviceMode:
        return Gradient::CoordinateMode::StretchToDevice;
    case QGradient::ObjectBoundingMode:
    case QGradient::ObjectMode:
        return Gradient::CoordinateMode::ObjectBounding;
    case QGradient::LogicalMode:
        break;
    }
    return Gradient::CoordinateMode::Logical;
}

static_assert(int(Gradient::Spread::Reflect) == QGradient::ReflectSpread);
static_assert(int(Gradient::Spread::Repeat) == QGradient::RepeatSpread);

} // namespace

QBrush toQt(const Gradient& gradient)
{
    if (gradient.isEmpty())
        return {};
    QGradient result = makeQtGradient(gradient);
    result.setSpread(static_cast<QGradient::Spread>(gradient.spread()));
    result.setCoordinateMode(toQt(gradient.coordinateMode()));
    for (const auto& stop : gradient.stops())
        result.setColorAt(stop.offset, toQt(stop.color));
    return result;
}

Gradient fromQt(const QGradient& gradient)
{
    auto made = makeGradient(gradient);
    if (!made)
        return {};
    Gradient& result = *made;
    result.setSpread(static_cast<Gradient::Spread>(gradient.spread()));
    result.setCoordinateMode(fromQt(gradient.coordinateMode()));
    for (const auto& [offset, color] : gradient.stops())
        result.addStop(offset, fromQt(color));
    return result;
}

} // namespace Vetra
