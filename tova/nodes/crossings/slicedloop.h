#pragma once

#include "host/task.h"

#include <algorithm>
#include <cstddef>

namespace Tova2 {

/// Goes on with a loop at `cursor`, one budget step each `block` elements; `body` gets a range.
/// True when the loop is through.
template <class Body>
bool sliced(std::size_t& cursor, std::size_t end, std::size_t block, Host::TaskBudget& budget,
            Body&& body)
{
    while (cursor < end) {
        const std::size_t next = std::min(end, cursor + block);
        body(cursor, next);
        cursor = next;
        if (budget.isSpentAfterStep())
            break;
    }
    return cursor == end;
}

/// The same with one step an element.
template <class Body>
bool slicedEach(std::size_t& cursor, std::size_t end, Host::TaskBudget& budget, Body&& body)
{
    while (cursor < end) {
        body(cursor++);
        if (budget.isSpentAfterStep())
            break;
    }
    return cursor == end;
}

/// The same for elements that may be much work each: `body` returns how much, in units of which a
/// thousand or so may pass between two looks at the clock.
template <class Body>
bool slicedByWork(std::size_t& cursor, std::size_t end, Host::TaskBudget& budget, Body&& body)
{
    constexpr std::size_t kMuch = 4096;
    std::size_t work = 0;
    while (cursor < end) {
        work += body(cursor++);
        const bool isMuch = work >= kMuch;
        if (isMuch)
            work = 0;
        if (isMuch ? budget.isSpentAfterLongStep() : budget.isSpentAfterStep())
            break;
    }
    return cursor == end;
}

} // namespace Tova2
