#pragma once

#include "vemit/emitter.h"
#include "vetra/stringid.h"

#include <vector>

namespace Tova2 {

class FocusEvent;
class KeyEvent;
class MouseEvent;

/// What a node sends when its scene delivers input to it: the event, and the node's tags, by which
/// one listener tells many nodes apart. A listener that wants no ancestor of the node to hear of a
/// press, move, release or key consumes the event.
///
/// Listeners may do anything, to the node and its scene too; an exception reaches whoever had the
/// event delivered.
struct NodeEmitters {
    using Tags = std::vector<Vetra::StringID>;
    using MouseEmitter = Vemit::Emitter<MouseEvent&, const Tags&>;
    using KeyEmitter = Vemit::Emitter<KeyEvent&, const Tags&>;
    using FocusEmitter = Vemit::Emitter<FocusEvent&, const Tags&>;

    MouseEmitter mousePress;
    MouseEmitter mouseRelease;
    MouseEmitter mouseMove;
    /// The node, or a descendant, has become the topmost one under the pointer.
    MouseEmitter hoverEnter;
    MouseEmitter hoverMove;
    /// It is so no longer, or has left the scene.
    MouseEmitter hoverExit;
    KeyEmitter keyPress;
    KeyEmitter keyRelease;
    FocusEmitter focusIn;
    FocusEmitter focusOut;
};

} // namespace Tova2
