#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// The colour depth of the screen in bits, asked for once, so that painters can avoid what looks
/// bad in few colours.
class TOVA_EXPORT LodColorDepth {
public:
    /// Below this depth a gradient gives way to its first colour.
    static constexpr int gradientMinimum = 16;

    /// Asks the primary screen. While there is no GUI application to ask, nothing is stored.
    static void cacheSystemColorDepth();
    /// The stored depth; finds it first if need be. 32 as long as it cannot be found.
    static int getSystemColorDepth();
    /// Replaces the stored depth, for tests and for hosts that know better. 0 or less forgets it.
    static void setSystemColorDepth(int bits);
    static bool isLow() { return getSystemColorDepth() < gradientMinimum; }

private:
    static int s_systemColorDepth;

    TOVA_PLAIN_TYPE("Tova2.LodColorDepth");
};

} // namespace Tova2
