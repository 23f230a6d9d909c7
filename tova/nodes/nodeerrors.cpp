#include "tova/nodes/nodeerrors.h"

#include "vetra/error.h"

namespace Tova2 {

namespace {

const char* keyOf(NodeError error)
{
    switch (error) {
    case NodeError::CannotParentToSelf:
        return "CannotParentToSelf";
    case NodeError::CyclicalHierarchy:
        return "CyclicalHierarchy";
    case NodeError::InvalidLinearPathIndex:
        return "InvalidLinearPathIndex";
    case NodeError::InvalidCurveIndex:
        return "InvalidCurveIndex";
    case NodeError::NegativeLinearPathScale:
        return "NegativeLinearPathScale";
    case NodeError::ZeroLengthDirectionVector:
        return "ZeroLengthDirectionVector";
    case NodeError::InvalidNode:
        break;
    }
    return "InvalidNode";
}

} // namespace

void raise(NodeError error)
{
    throw Vetra::Error("tova:nodes", keyOf(error));
}

} // namespace Tova2
