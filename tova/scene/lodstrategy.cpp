#include "tova/scene/lodstrategy.h"

#include "tova/scene/fullqualitylodstrategy.h"
#include "tova/scene/massivemodellodstrategy.h"
#include "tova/scene/scene.h"

namespace Tova2 {

LODStrategy::LODStrategy() : LODStrategy("tova2::default") {}

LODStrategy::LODStrategy(const Vetra::StringID& id) : m_id(id) {}

LODStrategy::~LODStrategy() = default;

void LODStrategy::beginScene(Scene* scene)
{
    m_scene = scene;
}

void LODStrategy::endScene(Scene*)
{
    m_scene = nullptr;
}

unsigned char LODStrategy::getQuality(double scale) const
{
    if (scale > 0.75)
        return 2;
    return scale > 0.525 ? 1 : 0;
}

void LODStrategy::activate()
{
    m_isActive = true;
}

void LODStrategy::deactivate()
{
    m_isActive = false;
}

FullQualityLODStrategy::FullQualityLODStrategy() : LODStrategy(getStaticID()) {}

const Vetra::StringID& FullQualityLODStrategy::getStaticID()
{
    static const Vetra::StringID id("tova2::fullquality");
    return id;
}

unsigned char FullQualityLODStrategy::getQuality(double) const
{
    return 2;
}

MassiveModelLODStrategy::MassiveModelLODStrategy() : LODStrategy(getStaticID()) {}

const Vetra::StringID& MassiveModelLODStrategy::getStaticID()
{
    static const Vetra::StringID id("tova2::massivemodel");
    return id;
}

void MassiveModelLODStrategy::beginScene(Scene* scene)
{
    LODStrategy::beginScene(scene);
    m_nodeCount = scene ? scene->getAllNodesCount() : 0;
}

void MassiveModelLODStrategy::endScene(Scene* scene)
{
    LODStrategy::endScene(scene);
    m_nodeCount = 0;
}

unsigned char MassiveModelLODStrategy::getQuality(double scale) const
{
    constexpr unsigned kMassive = 250;
    if (m_nodeCount < kMassive)
        return LODStrategy::getQuality(scale);
    return scale > 0.5 ? 1 : 0;
}

} // namespace Tova2
