#include "tova/scene/lodmanager.h"

#include "scene/lodmanagerprivate.h"

namespace Tova2 {

LODManager::LODManager() : d(std::make_unique<LODManagerPrivate>()) {}

LODManager::~LODManager() = default;

LODManager& LODManager::instance()
{
    // Never destroyed: scenes and strategies kept in statics may outlive any order of exit.
    static auto* const manager = new LODManager;
    return *manager;
}

void LODManager::registerStrategy(const boost::shared_ptr<LODStrategy>& strategy)
{
    d->add(strategy);
}

bool LODManager::unRegisterStrategy(const boost::shared_ptr<LODStrategy>& strategy)
{
    return d->remove(strategy);
}

bool LODManager::unRegisterStrategy(const Vetra::StringID& id)
{
    return d->remove(id);
}

bool LODManager::activateStrategy(const Vetra::StringID& id)
{
    return d->activate(id);
}

void LODManager::deactivateStrategy(const Vetra::StringID& id)
{
    d->deactivate(id);
}

void LODManager::beginScene(Scene* scene, const Vetra::StringID& strategyKey)
{
    d->beginScene(scene, strategyKey);
}

void LODManager::endScene(Scene* scene)
{
    d->endScene(scene);
}

unsigned char LODManager::getQualityLevel(double scale) const
{
    return d->qualityAt(scale);
}

} // namespace Tova2
