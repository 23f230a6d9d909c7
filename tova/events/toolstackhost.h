#pragma once

namespace Vetra {
class Cursor;
}

namespace Tova2 {

/// What a tool stack asks of the scene that it belongs to. It may die with the scene inside any
/// callback of a tool; the stack is destroyed before.
class ToolStackHost {
public:
    virtual void showToolCursor(const Vetra::Cursor& cursor) = 0;
    /// No tool has a cursor to show.
    virtual void restoreCursor() = 0;
    /// An operation on the stack has ended, and no tool owns the interaction.
    virtual void noToolActive() = 0;

protected:
    ~ToolStackHost() = default;
};

} // namespace Tova2
