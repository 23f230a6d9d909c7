#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/glpoint.h"

namespace Tova2 {

/// A corner of a curved path. Its handles are the control points of the curve that leaves it and of
/// the one that arrives.
struct TOVA_EXPORT Vertex {
    Vetra::GLPoint<double> position, forwardTangent, backwardTangent;

    /// All coordinates are identical or differ by at most `tolerance`; equal infinities are
    /// identical, NaN never is.
    bool almostEqual(const Vertex& other, double tolerance) const noexcept;
    bool operator==(const Vertex&) const = default;

    TOVA_PLAIN_TYPE("Tova2.Vertex");
};

} // namespace Tova2
