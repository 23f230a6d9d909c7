#pragma once

#include "tova/nodes/node.h"

#include <string>

namespace Tova2 {

/// What a node is and holds, for bug reports: a line each, "Label: value", UTF-8, lists and texts
/// cut short. Made for people; the lines may change. Nodes are named by kind and address, which
/// tells apart those of one run. An empty handle gives "Node: none".
TOVA_EXPORT std::string inspectorText(const Node& node);

} // namespace Tova2
