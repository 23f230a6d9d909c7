#pragma once

#include "movecommand.h"
#include "selection.h"

#include <tova/events/tool.h>
#include <vemit/emitter.h>

class QUndoStack;

namespace TovaView {

/// Selects blocks, by click and by rubber band, and moves those that are selected, by dragging and
/// by the arrow keys. Shift adds and takes away; while dragging it keeps to one direction.
class MoveTool : public Tova2::Tool {
public:
    static Vetra::StringID staticGetDefaultRole() { return "MoveTool"; }

    /// All of them have to outlive the tool's time in the stack.
    MoveTool(DiagramDocument& document, Selection& selection, QUndoStack& history);

    /// Blocks move while a drag is under way, and come back when it is cancelled.
    Vemit::Emitter<>& moved() { return m_moved; }
    /// The rubber band in the scene; an empty rectangle when it goes.
    Vemit::Emitter<Rect>& banded() { return m_banded; }
    /// One step of the history with the nudges right before it.
    void nudge(const Point& distance);

    ModifyingType isModifyingTool() const override { return ModifyingType::ModifiesModel; }
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }
    EAutoScrollType autoScrollTypeDuringDrag() override { return EAutoScrollType::Default; }
    bool requiresKeyAutoRepeat() const override { return true; }
    std::optional<Vetra::Cursor> overrideCursor() override;
    void cancel(ECancelReason reason, const Tool* cause) override;
    void onRemoveFromStack() override;

    void handleMousePressEvent(Tova2::MouseEvent& event) override;
    void handleMouseDoubleClickEvent(Tova2::MouseEvent& event) override;
    void handleMouseMoveEvent(Tova2::MouseEvent& event) override;
    void handleMouseReleaseEvent(Tova2::MouseEvent& event) override;
    void handleKeyPressEvent(Tova2::KeyEvent& event) override;

private:
    int blockAt(const Tova2::MouseEvent& event) const;
    void drag(const Tova2::MouseEvent& event);
    void stretchBand(const Tova2::MouseEvent& event);
    void finishClick();
    void endGesture();
    void record(MoveCommand::Kind kind, DiagramDocument::Placement before);

    DiagramDocument& m_document;
    Selection& m_selection;
    QUndoStack& m_history;
    Vemit::Emitter<> m_moved;
    Vemit::Emitter<Rect> m_banded;

    int m_pressed = -1;             ///< the block under the press; -1 begins a band
    bool m_hasBeenSelected = false; ///< before the press
    bool m_isAdding = false;        ///< by Shift
    Point m_pressPoint;
    Vetra::GLPoint<int> m_pressPixel;
    DiagramDocument::Placement m_before; ///< of a drag
    std::vector<int> m_kept;             ///< by a band that adds
    bool m_isOverBlock = false;
};

} // namespace TovaView
