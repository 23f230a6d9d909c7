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

} // namespace Tova2
