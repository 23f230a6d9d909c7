#pragma once

#include "diagramdocument.h"
#include "movetool.h"
#include "selection.h"
#include "selectionframe.h"

#include <vemit/listener.h>

#include <QUndoStack>

namespace Tova2 {
class GLCanvas;
}

namespace TovaView {

/// A document open in a canvas: what is selected in it, and the history of its moves.
class Editor : public Vemit::Listener {
public:
    /// Shows the document in the canvas, which has to outlive the editor.
    Editor(Tova2::GLCanvas& canvas, std::unique_ptr<DiagramDocument> document,
           const Vetra::Color& accent);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    DiagramDocument& document() { return *m_document; }
    QUndoStack& history() { return m_history; }

    void selectAll();
    void selectNone() { m_selection.clear(); }
    /// The next block, or the one before, alone; scrolls it into view.
    void selectNext(int step);
    /// All that is selected, as large as the canvas allows; without a selection nothing.
    void zoomToSelection();
    /// Ends a drag that is under way.
    void cancelTools();

    /// In front of which the diagram lies; nothing for its own.
    void setGround(const std::optional<Vetra::Color>& color);

private:
    void attach();
    void detach();
    void showSelection();
    void placeFrames();

    Tova2::GLCanvas& m_canvas;
    Vetra::Color m_accent;
    std::unique_ptr<DiagramDocument> m_document;
    Selection m_selection;
    QUndoStack m_history;
    Vetra::Holder<MoveTool> m_tool;
    std::vector<SelectionFrame> m_frames;
};

} // namespace TovaView
