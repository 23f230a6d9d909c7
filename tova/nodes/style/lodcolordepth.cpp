#include "tova/nodes/style/lodcolordepth.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace Tova2 {

int LodColorDepth::s_systemColorDepth = 0;

void LodColorDepth::cacheSystemColorDepth()
{
    // A program without a GUI application must not be made to touch a display.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    if (const auto* screen = QGuiApplication::primaryScreen())
        setSystemColorDepth(screen->depth());
}

int LodColorDepth::getSystemColorDepth()
{
    constexpr int unknown = 32;
    if (s_systemColorDepth == 0)
        cacheSystemColorDepth();
    return s_systemColorDepth ? s_systemColorDepth : unknown;
}

void LodColorDepth::setSystemColorDepth(int bits)
{
    s_systemColorDepth = std::max(bits, 0);
}

} // namespace Tova2
