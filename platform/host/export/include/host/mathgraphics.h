#pragma once

#include "host/host_export.h"

#include <functional>

namespace MathGraphics {

/// What `initialize_math_graphics_kernel` is to call; empty, as at first, for a host without one.
/// GUI thread.
HOST_EXPORT void setKernel(std::function<void()> start);

/// Starts the kernel unless it is ready. Throws what the host's function throws; the kernel is then
/// not ready, and may be started again.
HOST_EXPORT void initialize_math_graphics_kernel();
/// False as well when the host lends none.
HOST_EXPORT bool isKernelReady();

} // namespace MathGraphics
