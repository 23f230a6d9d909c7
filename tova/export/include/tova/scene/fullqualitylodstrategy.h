#pragma once

#include "tova/scene/lodstrategy.h"
#include "tova/typename.h"

namespace Tova2 {

/// Everything at every zoom, at whatever cost.
class TOVA_EXPORT FullQualityLODStrategy : public LODStrategy {
public:
    FullQualityLODStrategy();
    static const Vetra::StringID& getStaticID(); ///< "tova2::fullquality"

    unsigned char getQuality(double scale) const override;

    TOVA_DERIVED_TYPE("Tova2.FullQualityLODStrategy", LODStrategy);
};

} // namespace Tova2
