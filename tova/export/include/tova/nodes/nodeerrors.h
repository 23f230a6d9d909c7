#pragma once

#include "tova/tova_export.h"

namespace Tova2 {

/// Keys of message group "tova:nodes"; an enumerator's name is the key the host looks up.
enum class NodeError {
    InvalidNode,
    CannotParentToSelf,
    CyclicalHierarchy,
    InvalidLinearPathIndex,
    InvalidCurveIndex,
    NegativeLinearPathScale,
    ZeroLengthDirectionVector
};

/// Throws Vetra::Error with group "tova:nodes".
[[noreturn]] TOVA_EXPORT void raise(NodeError error);

} // namespace Tova2
