#pragma once

#include "vetra/color.h"
#include "vetra/glpoint.h"
#include "vetra/vetra_export.h"

#include <utility>
#include <vector>

namespace Vetra {

/// A colour ramp and the line, circle or turn along which it runs. The record is shared and copied
/// on write; the default, empty gradient has none and costs one null pointer.
class VETRA_EXPORT Gradient {
public:
    enum class Type { Linear, Radial, Conical };
    /// What lies beyond the ramp's ends.
    enum class Spread { Pad, Reflect, Repeat };
    /// What the geometry is measured in: units of the painted thing, fractions of the device, or
    /// fractions of the painted thing's bounding box.
    enum class CoordinateMode { Logical, StretchToDevice, ObjectBounding };

    /// A colour at a place of the ramp.
    struct Stop {
        double offset = 0; ///< 0 to 1
        Color color;
        bool operator==(const Stop&) const = default;
    };

    /// Linear from (0, 0) to (1, 1), logical, padded, without stops.
    Gradient() noexcept = default;
    Gradient(const Gradient& other) noexcept : m_record(other.m_record) { acquire(); }
    Gradient(Gradient&& other) noexcept : m_record(std::exchange(other.m_record, nullptr)) {}
    ~Gradient() { release(); }
    Gradient& operator=(Gradient other) noexcept
    {
        std::swap(m_record, other.m_record);
        return *this;
    }

    // A coordinate that is not finite, or a radius that is not above 0, yields the empty gradient.
    static Gradient linear(const GLPoint<double>& start, const GLPoint<double>& end);
    static Gradient radial(const GLPoint<double>& center, double radius);
    static Gradient radial(const GLPoint<double>& center, double radius,
                           const GLPoint<double>& focalPoint);
    /// The angle is in degrees, counter-clockwise from three o'clock.
    static Gradient conical(const GLPoint<double>& center, double angle);

    /// No stops: nothing to paint with.
    bool isEmpty() const noexcept;
    /// By rising offset.
    const std::vector<Stop>& stops() const noexcept;
    /// A second colour for one offset replaces the first; an offset outside 0..1, or NaN, is
    /// dropped.
    void addStop(double offset, const Color& color);
    /// The same rules, one stop after the other.
    void setStops(const std::vector<Stop>& stops);

    Type type() const noexcept;
    Spread spread() const noexcept;
    void setSpread(Spread spread);
    CoordinateMode coordinateMode() const noexcept;
    void setCoordinateMode(CoordinateMode mode);

    /// Where the ramp of a linear gradient begins; the centre of the other types.
    GLPoint<double> start() const noexcept;
    GLPoint<double> center() const noexcept { return start(); }
    /// Where the ramp of a linear gradient ends; the focal point of a radial one; the centre of a
    /// conical one.
    GLPoint<double> end() const noexcept;
    GLPoint<double> focalPoint() const noexcept { return end(); }
    double radius() const noexcept; ///< 0 unless radial
    double angle() const noexcept;  ///< 0 unless conical

    /// Exact, by value: type, geometry, spread, mode and every stop.
    bool operator==(const Gradient& other) const noexcept
    {
        return m_record == other.m_record || equals(other);
    }

private:
    struct Record;

    explicit Gradient(Record* record) noexcept : m_record(record) { acquire(); }
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
    bool equals(const Gradient& other) const noexcept;
    const Record& record() const noexcept;
    Record& detach();

    Record* m_record = nullptr;
};

} // namespace Vetra
