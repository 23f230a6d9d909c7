#include "events/toollist.h"

#include <algorithm>
#include <iterator>

namespace Tova2 {

ToolList::Position ToolList::find(const Tool* tool) noexcept
{
    return std::find_if(m_places.begin(), m_places.end(), [tool](const Place& place) {
        return !place.isGone() && place.tool == tool;
    });
}

ToolList::Position ToolList::findRole(const Vetra::StringID& role) noexcept
{
    return std::find_if(m_places.begin(), m_places.end(),
                        [&](const Place& place) { return !place.isGone() && place.role == role; });
}

void ToolList::insertAbove(Position position, Tool& tool, const Vetra::StringID& role)
{
    m_places.insert(position, Place{Vetra::Holder<Tool>(&tool), role, ++m_changes});
    ++m_count;
    m_isCurrentDirty = true;
}

void ToolList::moveAbove(Position position, Position moved, const Vetra::StringID& role)
{
    insertAbove(position, *moved->tool, role);
    giveUp(moved);
}

void ToolList::remove(Position position) noexcept
{
    giveUp(position);
    for (Place& place : m_places) // where it was before included
        place.hasLeft = place.hasLeft || (place.isGone() && place.tool == position->tool);
    const auto listed = std::find(m_current.begin(), m_current.end(), position->tool);
    if (listed != m_current.end())
        listed->reset();
}

void ToolList::giveUp(Position position) noexcept
{
    Q_ASSERT(m_pins > 0);
    position->until = ++m_changes;
    --m_count;
    m_hasGone = true;
    m_isCurrentDirty = true;
}

const std::vector<Vetra::Holder<Tool>>& ToolList::current()
{
    if (m_isCurrentDirty) {
        m_current.clear();
        for (const Place& place : m_places) {
            if (!place.isGone())
                m_current.push_back(place.tool);
        }
        m_isCurrentDirty = false;
    }
    return m_current;
}

void ToolList::unlinkGone() noexcept
{
    // The destructor of a tool may do anything, so the list is in order before the first one runs.
    std::list<Place> gone;
    for (auto place = m_places.begin(); place != m_places.end();) {
        const auto next = std::next(place);
        if (place->isGone())
            gone.splice(gone.end(), m_places, place);
        place = next;
    }
    m_hasGone = false;
}

} // namespace Tova2
