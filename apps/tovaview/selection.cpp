#include "selection.h"

#include <algorithm>

namespace TovaView {

bool Selection::has(int block) const
{
    return std::binary_search(m_blocks.begin(), m_blocks.end(), block);
}

void Selection::set(std::vector<int> blocks)
{
    std::sort(blocks.begin(), blocks.end());
    blocks.erase(std::unique(blocks.begin(), blocks.end()), blocks.end());
    if (blocks == m_blocks)
        return;
    m_blocks = std::move(blocks);
    m_changed.send();
}

void Selection::add(int block)
{
    std::vector<int> blocks = m_blocks;
    blocks.push_back(block);
    set(std::move(blocks));
}

void Selection::toggle(int block)
{
    if (!has(block))
        return add(block);
    std::vector<int> blocks = m_blocks;
    blocks.erase(std::find(blocks.begin(), blocks.end(), block));
    set(std::move(blocks));
}

} // namespace TovaView
