#pragma once

#include <cstddef>

/// How often this program has called `operator new` so far, in any thread.
std::size_t allocationCount() noexcept;
