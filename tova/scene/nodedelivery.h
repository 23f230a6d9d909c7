#pragma once

#include "nodes/nodeimpl.h"
#include "tova/nodes/nodeemitters.h"
#include "vetra/glpoint.h"

#include <boost/container/small_vector.hpp>

#include <vector>

namespace Tova2 {

class DeferredError;
class EventCanvas;
class ScenePrivate;

/// Hands input on to the nodes of one scene through their emitters, and remembers who is under the
/// pointer, who was pressed and who has the keyboard.
///
/// Listeners may edit the scene or deliver more input: it is consulted anew after each, and the
/// nodes that it still has to call stay allocated meanwhile. A node is forgotten as it leaves the
/// scene, so that nothing here outlives it.
class NodeDelivery {
public:
    explicit NodeDelivery(ScenePrivate& scene) : m_scene(scene) {}

    // To the topmost node and its ancestors until the event is consumed; what lies below it hears
    // nothing.

    /// The node then hears of moves and releases wherever they are, and of keys.
    void press(MouseEvent& event);
    void release(MouseEvent& event);
    void move(MouseEvent& event);
    void pressKey(KeyEvent& event) { deliverKey(event, &NodeEmitters::keyPress); }
    void releaseKey(KeyEvent& event) { deliverKey(event, &NodeEmitters::keyRelease); }

    /// Empty when no node has the keyboard.
    Node focusedNode() const;

    // To the node that has the keyboard, when the canvas gets or loses it.
    void focusIn(FocusEvent& event) { tellFocus(event, true); }
    void focusOut(FocusEvent& event) { tellFocus(event, false); }

    struct Crossing {
        bool hasLeft = false;    ///< a node that was topmost
        bool hasEntered = false; ///< one that was not
    };
    /// Brings up to date who is under the pointer.
    Crossing hover(const MouseEvent& move);
    /// The pointer is over none.
    Crossing hoverNothing();
    /// Where the pointer was last, as an event of the scene's own.
    MouseEvent lastHover(EventCanvas* canvas = nullptr) const;

    /// Some have left the scene: keeps who was hovered or had the keyboard for `tellDeparted`.
    void noteLeft();
    /// Once the scene's records are whole again. The caller has held off destruction since
    /// `noteLeft`. True when the topmost node under the pointer was among them.
    bool tellDeparted(DeferredError& error);
    void forgetAll() noexcept;

private:
    using Chain = boost::container::small_vector<NodeImpl*, 8>;

    NodeImpl* topmostAt(const MouseEvent& event) const;
    Crossing hoverOver(NodeImpl* topmost, MouseEvent& event);
    bool exitOthers(const Chain& chain, MouseEvent& event);
    bool enterAll(const Chain& chain, MouseEvent& event);
    template <class E, class Emitter>
    void deliver(NodeImpl* target, E& event, Emitter emitter);
    void deliverKey(KeyEvent& event, NodeEmitters::KeyEmitter NodeEmitters::*emitter);
    void moveFocus(NodeImpl* pressed);
    void tellFocus(FocusEvent& event, bool hasFocus);

    ScenePrivate& m_scene;
    std::vector<NodeImpl*> m_hovered; ///< who has been told that it is
    NodeImpl* m_topmost = nullptr;
    NodeImpl* m_pressed = nullptr;
    NodeImpl* m_focused = nullptr;
    bool m_isFocusTold = false;
    std::vector<NodeImpl*> m_departed; ///< were hovered, have left
    NodeImpl* m_departedFocus = nullptr;
    bool m_hasTopmostDeparted = false;
    unsigned m_hoverRun = 0; ///< an outer one ends when an inner one has taken place
    Vetra::GLPoint<double> m_lastPosition;
};

} // namespace Tova2
