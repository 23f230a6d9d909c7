#pragma once

#include "vetra/stringid.h"

namespace Tova2 {

class Node;

/// Names one value of a node and how to reach it, for whoever animates or edits it without knowing
/// the node's class. Both operations throw tova:nodes/InvalidNode on an empty handle or on a node
/// of another kind.
template <class T>
struct Property {
    Vetra::StringID name;
    T (*get)(const Node& node);
    void (*set)(Node& node, const T& value);
};

} // namespace Tova2
