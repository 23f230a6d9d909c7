#pragma once

#include "diagramdocument.h"

#include <QUndoCommand>

namespace TovaView {

/// Blocks moved from one place to another. Nudges of the same blocks that follow each other are one
/// step.
class MoveCommand : public QUndoCommand {
public:
    enum class Kind { Drag, Nudge };

    /// For what has been done already. The document has to outlive it.
    MoveCommand(DiagramDocument& document, DiagramDocument::Placement before,
                DiagramDocument::Placement after, Kind kind);

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* next) override;

private:
    DiagramDocument& m_document;
    DiagramDocument::Placement m_before, m_after;
    Kind m_kind;
};

} // namespace TovaView
