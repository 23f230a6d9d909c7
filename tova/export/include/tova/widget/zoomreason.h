#pragma once

#include "tova/typename.h"

namespace Tova2 {

/// Why a canvas changes its scale: on behalf of the host, or by what the user does. Only the user
/// is held to the canvas's scale limits.
class ZoomReason {
public:
    enum class Source { Program, Wheel, Pinch, Tap, Keyboard, Menu };

    constexpr ZoomReason() noexcept = default;
    constexpr explicit(false) ZoomReason(Source source) noexcept : m_source(source) {}

    constexpr Source source() const noexcept { return m_source; }
    constexpr bool isByUser() const noexcept { return m_source != Source::Program; }

    bool operator==(const ZoomReason&) const = default;

private:
    Source m_source = Source::Program;

    TOVA_PLAIN_TYPE("Tova2.ZoomReason");
};

} // namespace Tova2
