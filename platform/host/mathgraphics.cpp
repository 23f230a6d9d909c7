#include "host/mathgraphics.h"

#include <utility>

namespace MathGraphics {

namespace {

struct Kernel {
    std::function<void()> start;
    bool isReady = false;
};

Kernel& kernel()
{
    static auto* const instance = new Kernel;
    return *instance;
}

} // namespace

void setKernel(std::function<void()> start)
{
    kernel() = {std::move(start), false};
}

void initialize_math_graphics_kernel()
{
    if (isKernelReady())
        return;
    const auto start = kernel().start; // it may be replaced meanwhile
    if (!start)
        return;
    start();
    kernel().isReady = true;
}

bool isKernelReady()
{
    return kernel().isReady;
}

} // namespace MathGraphics
