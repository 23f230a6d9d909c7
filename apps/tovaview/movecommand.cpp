#include "movecommand.h"

#include <algorithm>

namespace TovaView {

MoveCommand::MoveCommand(DiagramDocument& document, DiagramDocument::Placement before,
                         DiagramDocument::Placement after, Kind kind)
    : m_document(document), m_before(std::move(before)), m_after(std::move(after)), m_kind(kind)
{
    const auto count = m_before.blocks.size();
    setText(count == 1
                ? QStringLiteral("Move of %1").arg(m_document.nameOf(m_before.blocks[0].block))
                : QStringLiteral("Move of %1 Blocks").arg(count));
}

void MoveCommand::undo()
{
    m_document.restore(m_before);
}

void MoveCommand::redo()
{
    m_document.restore(m_after);
}

int MoveCommand::id() const
{
    return m_kind == Kind::Nudge ? 1 : -1;
}

bool MoveCommand::mergeWith(const QUndoCommand* next)
{
    const auto& other = static_cast<const MoveCommand&>(*next); // by its id
    const auto isSameBlock = [](const auto& a, const auto& b) { return a.block == b.block; };
    if (!std::equal(m_before.blocks.begin(), m_before.blocks.end(), other.m_before.blocks.begin(),
                    other.m_before.blocks.end(), isSameBlock))
        return false;
    m_before.completeWith(other.m_before);
    DiagramDocument::Placement after = other.m_after;
    after.completeWith(m_after);
    m_after = std::move(after);
    setObsolete(m_after == m_before);
    return true;
}

} // namespace TovaView
