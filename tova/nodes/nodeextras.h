#pragma once

#include "tova/nodes/customhittestfunctor.h"
#include "vetra/any.h"
#include "vetra/cursor.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"

#include <boost/container/flat_map.hpp>
#include <optional>

namespace Tova2 {

class NodeChangeSink;

/// What most nodes do not have; made on first use.
struct NodeExtras {
    boost::container::flat_map<Vetra::StringID, Vetra::any> tags;
    std::optional<Vetra::Cursor> cursor;
    Vetra::Holder<CustomHitTestFunctor> hitTester;
    NodeChangeSink* sink = nullptr;
};

} // namespace Tova2
