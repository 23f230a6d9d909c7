#include "scene/nodedelivery.h"

#include "nodes/deferrederror.h"
#include "nodes/destruction.h"
#include "nodes/nodeextras.h"
#include "scene/sceneprivate.h"
#include "scene/scenequeries.h"

#include "tova/events/focusevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

namespace {

NodeEmitters* emittersOf(const NodeImpl& node)
{
    return node.extras() ? node.extras()->emitters.get() : nullptr;
}

bool listensToHover(const NodeImpl& node)
{
    const NodeEmitters* const emitters = emittersOf(node);
    return emitters && (emitters->hoverEnter.hasListeners() || emitters->hoverMove.hasListeners() ||
                        emitters->hoverExit.hasListeners());
}

bool listensToKeyboard(const NodeImpl& node)
{
    const NodeEmitters* const emitters = emittersOf(node);
    return emitters && (emitters->keyPress.hasListeners() || emitters->keyRelease.hasListeners() ||
                        emitters->focusIn.hasListeners() || emitters->focusOut.hasListeners());
}

/// Whether anybody listened.
template <class E, class Emitter>
bool send(NodeImpl& node, E& event, Emitter emitter)
{
    NodeEmitters* const emitters = emittersOf(node);
    if (!emitters || !(emitters->*emitter).hasListeners())
        return false;
    (emitters->*emitter).send(event, node.handle().getTags());
    return true;
}

/// The node and its ancestors that pass the test, innermost first.
template <class Chain, class Test>
Chain chainOf(NodeImpl* node, Test&& test)
{
    Chain chain;
    for (; node; node = node->parentNode()) {
        if (test(*node))
            chain.push_back(node);
    }
    return chain;
}

template <class Nodes>
bool contains(const Nodes& nodes, const NodeImpl* node)
{
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

bool isOnlyButton(const Vetra::GLMouseEvent2& event)
{
    return event.buttons == event.button;
}

} // namespace

NodeImpl* NodeDelivery::topmostAt(const MouseEvent& event) const
{
    NodeImpl* const hit = SceneQueries::topmostAt(m_scene, Vetra::toQt(event.scenePos()),
                                                  Vetra::toQt(event.getViewportTransform()));
    // Its own hit tester may have taken it out.
    return hit && m_scene.has(*hit) ? hit : nullptr;
}

template <class E, class Emitter>
void NodeDelivery::deliver(NodeImpl* target, E& event, Emitter emitter)
{
    const auto isAny = [](const NodeImpl& node) { return emittersOf(node) != nullptr; };
    for (NodeImpl* const node : chainOf<Chain>(target, isAny)) {
        if (m_scene.has(*node) && send(*node, event, emitter) && event.isConsumed())
            return;
    }
}

void NodeDelivery::press(MouseEvent& event)
{
    const DestructionDelay delay;
    NodeImpl* const hit = topmostAt(event);
    // The release before may have gone elsewhere.
    if (!m_pressed || isOnlyButton(event.asGLMouseEvent2()))
        m_pressed = hit;
    moveFocus(m_pressed);
    deliver(m_pressed, event, &NodeEmitters::mousePress);
}

void NodeDelivery::release(MouseEvent& event)
{
    const DestructionDelay delay;
    NodeImpl* const target = m_pressed ? m_pressed : topmostAt(event);
    if (event.asGLMouseEvent2().buttons.isEmpty())
        m_pressed = nullptr;
    deliver(target, event, &NodeEmitters::mouseRelease);
}

void NodeDelivery::move(MouseEvent& event)
{
    const DestructionDelay delay;
    deliver(m_pressed ? m_pressed : topmostAt(event), event, &NodeEmitters::mouseMove);
}

void NodeDelivery::deliverKey(KeyEvent& event, NodeEmitters::KeyEmitter NodeEmitters::*emitter)
{
    const DestructionDelay delay;
    deliver(m_focused, event, emitter);
}

Node NodeDelivery::focusedNode() const
{
    return m_focused ? m_focused->handle() : Node();
}

void NodeDelivery::moveFocus(NodeImpl* pressed)
{
    const auto chain = chainOf<Chain>(pressed, listensToKeyboard);
    NodeImpl* const next = chain.empty() ? nullptr : chain.front();
    if (next == m_focused)
        return;
    NodeImpl* const last = std::exchange(m_focused, nullptr);
    if (last && std::exchange(m_isFocusTold, false)) {
        FocusEvent out(EventType::FocusOutEvent, Vetra::FocusReason::MouseReason);
        send(*last, out, &NodeEmitters::focusOut);
    }
    // It may have left by now, and a listener may have pressed another one.
    if (m_focused || !next || !m_scene.has(*next))
        return;
    m_focused = next;
    FocusEvent in(EventType::FocusInEvent, Vetra::FocusReason::MouseReason);
    tellFocus(in, true);
}

void NodeDelivery::tellFocus(FocusEvent& event, bool hasFocus)
{
    if (!m_focused || m_isFocusTold == hasFocus)
        return;
    const DestructionDelay delay;
    m_isFocusTold = hasFocus;
    send(*m_focused, event, hasFocus ? &NodeEmitters::focusIn : &NodeEmitters::focusOut);
}

NodeDelivery::Crossing NodeDelivery::hover(const MouseEvent& move)
{
    const DestructionDelay delay;
    m_lastPosition = move.scenePos();
    NodeImpl* const topmost = topmostAt(move);
    if (!topmost && !m_topmost && m_hovered.empty())
        return {};
    MouseEvent event = move.withType(EventType::HoverEvent);
    return hoverOver(topmost, event);
}

NodeDelivery::Crossing NodeDelivery::hoverNothing()
{
    if (!m_topmost && m_hovered.empty())
        return {};
    const DestructionDelay delay;
    MouseEvent event = lastHover();
    return hoverOver(nullptr, event);
}

NodeDelivery::Crossing NodeDelivery::hoverOver(NodeImpl* topmost, MouseEvent& event)
{
    const NodeImpl* const before = std::exchange(m_topmost, topmost);
    const auto chain = chainOf<Chain>(topmost, listensToHover);
    if (!exitOthers(chain, event) || !enterAll(chain, event) || before == m_topmost)
        return {};
    return {before != nullptr, m_topmost != nullptr};
}

/// False when a listener has moved the pointer itself, which has brought everything up to date.
bool NodeDelivery::exitOthers(const Chain& chain, MouseEvent& event)
{
    const unsigned run = ++m_hoverRun;
    const auto isOutside = [&](const NodeImpl* node) { return !contains(chain, node); };
    for (;;) {
        const auto left = std::find_if(m_hovered.rbegin(), m_hovered.rend(), isOutside);
        if (left == m_hovered.rend())
            return true;
        NodeImpl* const node = *left;
        m_hovered.erase(std::next(left).base());
        send(*node, event, &NodeEmitters::hoverExit);
        if (run != m_hoverRun)
            return false;
    }
}

bool NodeDelivery::enterAll(const Chain& chain, MouseEvent& event)
{
    const unsigned run = m_hoverRun;
    for (auto node = chain.rbegin(); node != chain.rend() && run == m_hoverRun; ++node) {
        if (!m_scene.has(**node))
            continue;
        const bool isNew = !contains(m_hovered, *node);
        if (isNew)
            m_hovered.push_back(*node);
        send(**node, event, isNew ? &NodeEmitters::hoverEnter : &NodeEmitters::hoverMove);
    }
    return run == m_hoverRun;
}

MouseEvent NodeDelivery::lastHover(EventCanvas* canvas) const
{
    return {EventType::HoverEvent, canvas, m_lastPosition, {}, {}, 0, {}, {}, {}, false, false};
}

void NodeDelivery::noteLeft()
{
    const auto hasLeft = [&](NodeImpl* node) { return node && !m_scene.has(*node); };
    const auto firstLeft = std::stable_partition(m_hovered.begin(), m_hovered.end(),
                                                 [&](NodeImpl* node) { return !hasLeft(node); });
    m_departed.insert(m_departed.end(), firstLeft, m_hovered.end());
    m_hovered.erase(firstLeft, m_hovered.end());
    if (hasLeft(m_topmost)) {
        m_topmost = nullptr;
        m_hasTopmostDeparted = true;
    }
    if (hasLeft(m_pressed))
        m_pressed = nullptr;
    if (!hasLeft(m_focused))
        return;
    if (std::exchange(m_isFocusTold, false))
        m_departedFocus = m_focused;
    m_focused = nullptr;
}

bool NodeDelivery::tellDeparted(DeferredError& error)
{
    const auto departed = std::exchange(m_departed, {});
    for (auto node = departed.rbegin(); node != departed.rend(); ++node) {
        MouseEvent event = lastHover();
        error.run([&] { send(**node, event, &NodeEmitters::hoverExit); });
    }
    if (NodeImpl* const node = std::exchange(m_departedFocus, nullptr)) {
        FocusEvent event(EventType::FocusOutEvent, Vetra::FocusReason::OtherReason);
        error.run([&] { send(*node, event, &NodeEmitters::focusOut); });
    }
    return std::exchange(m_hasTopmostDeparted, false);
}

void NodeDelivery::forgetAll() noexcept
{
    m_hovered.clear();
    m_departed.clear();
    m_topmost = m_pressed = m_focused = m_departedFocus = nullptr;
    ++m_hoverRun;
}

} // namespace Tova2
