#pragma once

#include "tova/nodes/style/effect.h"
#include "tova/nodes/style/fill.h"
#include "tova/nodes/style/stroke.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// How a node is drawn: outline, interior, effects and two rendering flags. A plain value; a node
/// keeps its own copy.
class TOVA_EXPORT DrawStyle {
public:
    /// A solid black cosmetic outline around nothing, without effect, both flags off.
    DrawStyle() noexcept = default;
    DrawStyle(const Stroke& stroke, const Fill& fill) : m_stroke(stroke), m_fill(fill) {}

    const Stroke& stroke() const noexcept { return m_stroke; }
    void setStroke(const Stroke& stroke) noexcept { m_stroke = stroke; }
    const Fill& fill() const noexcept { return m_fill; }
    void setFill(const Fill& fill) { m_fill = fill; }
    const Effect& effect() const noexcept { return m_effect; }
    void setEffect(const Effect& effect) { m_effect = effect; }
    bool isAntiAliased() const noexcept { return m_isAntiAliased; }
    void setIsAntiAliased(bool on) noexcept { m_isAntiAliased = on; }
    bool isPixelAligned() const noexcept { return m_isPixelAligned; }
    void setIsPixelAligned(bool on) noexcept { m_isPixelAligned = on; }

    /// Whether what is drawn hides all that lies under it. A gradient without stops hides nothing.
    bool isOpaque() const noexcept;

    /// Exact.
    bool operator==(const DrawStyle&) const = default;

private:
    Effect m_effect;
    Stroke m_stroke{StrokeStyle::SolidLine};
    Fill m_fill;
    bool m_isAntiAliased = false;
    bool m_isPixelAligned = false;

    TOVA_PLAIN_TYPE("Tova2.DrawStyle");
};

} // namespace Tova2
