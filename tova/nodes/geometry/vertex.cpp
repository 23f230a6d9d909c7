#include "tova/nodes/geometry/vertex.h"

#include "nodes/geometry/almostequal.h"

namespace Tova2 {

bool Vertex::almostEqual(const Vertex& other, double tolerance) const noexcept
{
    return Tova2::almostEqual(position, other.position, tolerance) &&
           Tova2::almostEqual(forwardTangent, other.forwardTangent, tolerance) &&
           Tova2::almostEqual(backwardTangent, other.backwardTangent, tolerance);
}

} // namespace Tova2
