#include "events/autoscrollcontrol.h"

namespace Tova2 {

AutoScrollControl::AutoScrollControl(bool isOwn)
{
    list().insert(isOwn ? list().begin() : list().end(), this);
}

AutoScrollControl::~AutoScrollControl()
{
    std::erase(list(), this);
}

AutoScrollControl* AutoScrollControl::current() noexcept
{
    return list().empty() ? nullptr : list().back();
}

std::vector<AutoScrollControl*>& AutoScrollControl::list() noexcept
{
    // Stacks may end after the last static object.
    static std::vector<AutoScrollControl*>& controls = *new std::vector<AutoScrollControl*>;
    return controls;
}

} // namespace Tova2
