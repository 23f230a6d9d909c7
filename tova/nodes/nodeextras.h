#pragma once

#include "nodes/changelevel.h"

#include "tova/nodes/customhittestfunctor.h"
#include "tova/nodes/nodeemitters.h"
#include "tova/nodes/weakref.h"
#include "vemit/emitter.h"
#include "vetra/any.h"
#include "vetra/cursor.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"

#include <boost/container/flat_map.hpp>

#include <memory>
#include <optional>

namespace Tova2 {

class NodeChangeSink;
class NodeImpl;

using ChangeEmitter = Vemit::Emitter<NodeImpl&, ChangeLevel>;

/// What most nodes do not have; made on first use.
struct NodeExtras {
    NodeExtras() = default;
    NodeExtras(const NodeExtras&) = delete;
    NodeExtras& operator=(const NodeExtras&) = delete;
    ~NodeExtras() { self.expire(); }

    boost::container::flat_map<Vetra::StringID, Vetra::any> tags;
    std::optional<Vetra::Cursor> cursor;
    Vetra::Holder<CustomHitTestFunctor> hitTester;
    std::unique_ptr<NodeEmitters> emitters;
    NodeChangeSink* sink = nullptr;
    ChangeEmitter changes;
    WeakRef self; ///< to the node that owns these
};

} // namespace Tova2
