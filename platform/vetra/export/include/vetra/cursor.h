#pragma once

namespace Vetra {

/// The numbers are the toolkit's, and hosts store them.
enum class CursorShape {
    Arrow = 0,
    UpArrow = 1,
    Cross = 2,
    Wait = 3,
    IBeam = 4,
    SizeVertical = 5,
    SizeHorizontal = 6,
    SizeBackDiagonal = 7,
    SizeForwardDiagonal = 8,
    SizeAll = 9,
    Blank = 10,
    SplitVertical = 11,
    SplitHorizontal = 12,
    PointingHand = 13,
    Forbidden = 14,
    WhatsThis = 15,
    Busy = 16,
    OpenHand = 17,
    ClosedHand = 18,
    DragCopy = 19,
    DragMove = 20,
    DragLink = 21
};

/// What the pointer looks like over a node or during a gesture.
class Cursor {
public:
    constexpr Cursor() noexcept = default;
    /// A number outside the enumeration becomes the arrow.
    constexpr Cursor(CursorShape shape) noexcept
        : m_shape(shape >= CursorShape::Arrow && shape <= CursorShape::DragLink
                      ? shape
                      : CursorShape::Arrow)
    {}
    constexpr CursorShape shape() const noexcept { return m_shape; }
    bool operator==(const Cursor&) const = default;

private:
    CursorShape m_shape = CursorShape::Arrow;
};

} // namespace Vetra
