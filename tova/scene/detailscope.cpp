#include "scene/detailscope.h"

#include "scene/lodmanagerprivate.h"
#include "scene/sceneprivate.h"

#include "vetra/errorreporter.h"

namespace Tova2 {

DetailScope::DetailScope(ScenePrivate& scene)
    : m_manager(LODManagerPrivate::instance()), m_outerPaints(m_manager.paintCount())
{
    m_manager.beginScene(scene.scene(), scene.settings.lodStrategyKey);
}

DetailScope::~DetailScope()
{
    try {
        m_manager.endPaintsBeyond(m_outerPaints);
    } catch (...) {
        Vetra::reportError(std::current_exception(), "level-of-detail strategy");
    }
}

unsigned char DetailScope::qualityAt(double scale) const
{
    return m_manager.qualityAt(scale);
}

} // namespace Tova2
