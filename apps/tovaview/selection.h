#pragma once

#include <vemit/emitter.h>

#include <vector>

namespace TovaView {

/// The selected blocks of a document, by index, in growing order.
class Selection {
public:
    const std::vector<int>& blocks() const { return m_blocks; }
    bool isEmpty() const { return m_blocks.empty(); }
    bool has(int block) const;

    void set(std::vector<int> blocks);
    void add(int block);
    void toggle(int block);
    void clear() { set({}); }

    /// Sent after each change.
    Vemit::Emitter<>& changed() { return m_changed; }

private:
    std::vector<int> m_blocks;
    Vemit::Emitter<> m_changed;
};

} // namespace TovaView
