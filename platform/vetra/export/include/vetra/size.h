#pragma once

namespace Vetra {

/// Width and height, without a unit of its own.
template <class T>
struct Size {
    T width{}, height{};

    /// False as well when a field is NaN.
    constexpr bool isValid() const noexcept { return width > 0 && height > 0; }
    bool operator==(const Size&) const = default;
};

} // namespace Vetra
