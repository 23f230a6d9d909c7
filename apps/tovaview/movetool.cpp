#include "movetool.h"

#include <tova/events/keyevent.h>
#include <tova/events/mouseevent.h>
#include <tova/scene/scene.h>

#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

constexpr double grid = 5, fineGrid = 1; ///< of nudges

bool isLeftHeld(const Tova2::MouseEvent& event)
{
    return event.asGLMouseEvent2().buttons.has(Vetra::MouseButton::LeftButton);
}

bool hasShift(const Tova2::MouseEvent& event)
{
    return event.asGLMouseEvent2().modifiers.has(Vetra::Modifier::Shift);
}

/// Whole points keep the corners of a diagram where they can meet again.
Point rounded(const Point& distance)
{
    return {std::round(distance.x), std::round(distance.y)};
}

Point alongOneAxis(const Point& distance)
{
    return std::abs(distance.x) < std::abs(distance.y) ? Point{0, distance.y}
                                                       : Point{distance.x, 0};
}

/// Of an arrow key; the zero vector for any other.
Point directionOf(Vetra::Key key)
{
    switch (key) {
    case Vetra::Key::Left:
        return {-1, 0};
    case Vetra::Key::Right:
        return {1, 0};
    case Vetra::Key::Up:
        return {0, -1};
    case Vetra::Key::Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

MoveTool::MoveTool(DiagramDocument& document, Selection& selection, QUndoStack& history)
    : m_document(document), m_selection(selection), m_history(history)
{}

std::optional<Vetra::Cursor> MoveTool::overrideCursor()
{
    const bool isDragging = isActive() && m_pressed >= 0;
    if (isDragging || (isIdle() && m_isOverBlock))
        return Vetra::CursorShape::SizeAll;
    return {};
}

void MoveTool::handleMousePressEvent(Tova2::MouseEvent& event)
{
    const auto& input = event.asGLMouseEvent2();
    if (!isIdle() || input.button != Vetra::MouseButton::LeftButton)
        return;
    m_pressed = blockAt(event);
    m_isAdding = hasShift(event);
    m_hasBeenSelected = m_selection.has(m_pressed);
    if (!m_isAdding && !m_hasBeenSelected)
        m_selection.clear();
    if (m_pressed >= 0)
        m_selection.add(m_pressed);
    m_kept = m_selection.blocks();
    m_before = m_document.placementOf(m_kept);
    m_pressPoint = event.scenePos();
    m_pressPixel = input.position;
    becomeAlert();
    event.consume();
}

/// The second press of two in a row may begin a drag like any other.
void MoveTool::handleMouseDoubleClickEvent(Tova2::MouseEvent& event)
{
    handleMousePressEvent(event);
}

void MoveTool::handleMouseMoveEvent(Tova2::MouseEvent& event)
{
    if (isIdle()) {
        m_isOverBlock = blockAt(event) >= 0;
        return;
    }
    // The release may have been lost, to a dialog for one.
    if (!isLeftHeld(event))
        return cancel(ECancelReason::AllToolsCancelled, nullptr);
    if (isAlert() && movedPastInteractionThreshold(m_pressPixel, event.asGLMouseEvent2().position))
        becomeActive();
    if (!isActive())
        return;
    if (m_pressed >= 0)
        drag(event);
    else
        stretchBand(event);
}

void MoveTool::handleMouseReleaseEvent(Tova2::MouseEvent& event)
{
    if (isIdle() || event.asGLMouseEvent2().button != Vetra::MouseButton::LeftButton)
        return;
    if (isActive() && m_pressed >= 0)
        record(MoveCommand::Kind::Drag, m_before);
    else if (isAlert() && m_pressed >= 0)
        finishClick();
    endGesture();
    event.consume();
}

/// The press has selected; on a selected block the click still has something to say.
void MoveTool::finishClick()
{
    if (!m_hasBeenSelected)
        return;
    if (m_isAdding)
        m_selection.toggle(m_pressed);
    else
        m_selection.set({m_pressed});
}

void MoveTool::handleKeyPressEvent(Tova2::KeyEvent& event)
{
    if (!isIdle() || m_selection.isEmpty())
        return;
    const Vetra::Modifiers held = event.modifiers();
    const Point direction = directionOf(event.key());
    if (direction != Point{} && !held.has(Vetra::Modifier::Ctrl)) {
        nudge(direction * (held.has(Vetra::Modifier::Shift) ? fineGrid : grid));
        event.consume();
    } else if (event.key() == Vetra::Key::Escape) {
        m_selection.clear();
        event.consume();
    }
}

void MoveTool::cancel(ECancelReason, const Tool*)
{
    if (isActive() && m_pressed >= 0) {
        m_document.restore(m_before);
        m_moved.send();
    } else if (isActive()) {
        m_selection.set(m_kept);
    }
    endGesture();
}

void MoveTool::onRemoveFromStack()
{
    cancel(ECancelReason::RemovedFromStack, nullptr);
}

void MoveTool::nudge(const Point& distance)
{
    if (m_selection.isEmpty() || !isIdle())
        return;
    DiagramDocument::Placement before = m_document.placementOf(m_selection.blocks());
    m_document.moveFrom(before, distance);
    record(MoveCommand::Kind::Nudge, std::move(before));
}

int MoveTool::blockAt(const Tova2::MouseEvent& event) const
{
    return m_document.blockOf(
        m_document.scene().getNodeAt(event.scenePos(), event.getViewportTransform()));
}

void MoveTool::drag(const Tova2::MouseEvent& event)
{
    const Point distance = rounded(event.scenePos() - m_pressPoint);
    m_document.moveFrom(m_before, hasShift(event) ? alongOneAxis(distance) : distance);
    m_moved.send();
}

void MoveTool::stretchBand(const Tova2::MouseEvent& event)
{
    const Rect band = Rect::fromCorners(m_pressPoint, event.scenePos());
    m_banded.send(band);
    std::vector<int> blocks = m_kept;
    for (const int block : m_document.blocks())
        if (band.intersects(m_document.frameOf(block)))
            blocks.push_back(block);
    m_selection.set(std::move(blocks));
}

void MoveTool::endGesture()
{
    if (isActive() && m_pressed < 0)
        m_banded.send({});
    becomeIdle();
}

void MoveTool::record(MoveCommand::Kind kind, DiagramDocument::Placement before)
{
    DiagramDocument::Placement after = m_document.nowOf(before);
    if (after != before)
        m_history.push(new MoveCommand(m_document, std::move(before), std::move(after), kind));
    m_moved.send();
}

} // namespace TovaView
