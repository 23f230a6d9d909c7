#pragma once

#include "tova/scene/lodstrategy.h"
#include "tova/typename.h"

namespace Tova2 {

/// Never the full quality for a scene of 250 nodes or more, but the middle one down to a lower
/// scale than by default. Smaller scenes are painted as by default.
class TOVA_EXPORT MassiveModelLODStrategy : public LODStrategy {
public:
    MassiveModelLODStrategy();
    static const Vetra::StringID& getStaticID(); ///< "tova2::massivemodel"

    void beginScene(Scene* scene) override;
    void endScene(Scene* scene) override;
    unsigned char getQuality(double scale) const override;

private:
    unsigned m_nodeCount = 0; ///< of the current scene, when its paint began

    TOVA_DERIVED_TYPE("Tova2.MassiveModelLODStrategy", LODStrategy);
};

} // namespace Tova2
