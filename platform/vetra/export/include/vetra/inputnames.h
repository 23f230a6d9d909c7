#pragma once

#include "vetra/glpoint.h"
#include "vetra/inputenums.h"
#include "vetra/key.h"
#include "vetra/vetra_export.h"

#include <string>

namespace Vetra {

// Texts for logs. A number that no enumerator has gives the text for that; none of these fail.

/// "LeftButton" and so on; "Invalid button!" otherwise.
VETRA_EXPORT const char* nameOf(MouseButton button) noexcept;
/// "GestureStarted" and so on; "Invalid gesture state!" otherwise.
VETRA_EXPORT const char* nameOf(GestureState state) noexcept;
/// "MouseReason", "TabReason" or "OtherReason"; "invalid reason!" otherwise, for `BacktabReason`
/// too.
VETRA_EXPORT const char* nameOf(FocusReason reason) noexcept;
/// The toolkit's name of any key it knows, such as "Key_Escape"; "Key_unknown" otherwise.
VETRA_EXPORT const char* nameOf(Key key) noexcept;
/// In parentheses, each name with a blank behind it: "(SHIFT CTRL )".
VETRA_EXPORT std::string namesOf(Modifiers modifiers);

/// The shortest digits that read back as the same number.
VETRA_EXPORT std::string textOf(double number);
/// "(x, y)"
VETRA_EXPORT std::string textOf(const GLPoint<double>& point);

} // namespace Vetra
