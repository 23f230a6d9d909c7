#pragma once

#include "tova/nodes/style/lodscale.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/color.h"

#include <cstdint>

namespace Tova2 {

// The enumerators' values are fixed and their names are the scripting keywords.
enum class StrokeStyle : std::uint32_t {
    NoStroke,
    SolidLine,
    DashLine,
    DotLine,
    DashDotLine,
    DashDotDotLine
};
enum class StrokeCapStyle : std::uint32_t { FlatCap, SquareCap, RoundCap };
enum class StrokeJoinStyle : std::uint32_t { MiterJoin, BevelJoin, RoundJoin, SvgMiterJoin };

/// How an outline is drawn. A plain value.
class TOVA_EXPORT Stroke {
public:
    /// Opaque black, cosmetic, flat caps, mitred joins.
    Stroke(StrokeStyle style) noexcept; // NOLINT: a style alone is a usable stroke
    /// A width that `setLogicalWidth` would ignore counts as 0, a null function as
    /// `LodScale::instance()`.
    Stroke(const Vetra::Color& color, double logicalWidth, StrokeStyle style,
           StrokeCapStyle capStyle, StrokeJoinStyle joinStyle, const LodScale* scaleFunction);
    /// Transparent, and of style `NoStroke`.
    static Stroke NoStroke() noexcept;

    const Vetra::Color& color() const noexcept { return m_color; }
    void setColor(const Vetra::Color& color) noexcept { m_color = color; }
    /// In scene units; 0 is a cosmetic line, one device pixel wide at every zoom.
    double logicalWidth() const noexcept { return m_logicalWidth; }
    /// A width that is negative or not finite is ignored.
    void setLogicalWidth(double width) noexcept;
    StrokeStyle style() const noexcept { return m_style; }
    void setStyle(StrokeStyle style) noexcept { m_style = style; }
    StrokeCapStyle capStyle() const noexcept { return m_capStyle; }
    void setCapStyle(StrokeCapStyle style) noexcept { m_capStyle = style; }
    StrokeJoinStyle joinStyle() const noexcept { return m_joinStyle; }
    void setJoinStyle(StrokeJoinStyle style) noexcept { m_joinStyle = style; }
    /// Never null and never owned.
    const LodScale* scaleFunction() const noexcept { return m_scaleFunction; }
    /// Null stands for `LodScale::instance()`.
    void setScaleFunction(const LodScale* function) noexcept;

    bool isNoStroke() const noexcept { return m_style == StrokeStyle::NoStroke; }
    /// The width in scene units that the line has at a view scale; finite and never negative. A
    /// view scale that is not finite or not above 0 counts as 1.
    double width(double viewScale) const;

    /// Exact; scale functions compare by identity.
    bool operator==(const Stroke&) const = default;

private:
    const LodScale* m_scaleFunction = LodScale::instance();
    double m_logicalWidth = 0;
    Vetra::Color m_color;
    StrokeStyle m_style = StrokeStyle::SolidLine;
    StrokeCapStyle m_capStyle = StrokeCapStyle::FlatCap;
    StrokeJoinStyle m_joinStyle = StrokeJoinStyle::MiterJoin;

    TOVA_PLAIN_TYPE("Tova2.Stroke");
};

} // namespace Tova2
