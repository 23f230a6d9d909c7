#pragma once

#include "tova/scene/lodstrategy.h"

#include <boost/shared_ptr.hpp>

#include <array>
#include <cstddef>
#include <map>
#include <vector>

namespace Tova2 {

/// Strategies are the host's, and may call back, throw or be unregistered in the middle of any
/// call: each is called with the records already as they are to be, and through a reference of its
/// own. Only the question that each node asks is too cheap for that: what goes meanwhile is kept
/// until the answer is there.
class LODManagerPrivate {
public:
    using StrategyPtr = boost::shared_ptr<LODStrategy>;

    LODManagerPrivate();
    static LODManagerPrivate& instance();

    void add(const StrategyPtr& strategy);
    /// Where a host has not put one of its own under the same id.
    void addStandard();
    /// Scenes are drawn all the same, by the default one.
    void removeStandard();
    bool remove(const StrategyPtr& strategy);
    bool remove(const Vetra::StringID& id) { return m_registered.erase(id) > 0; }
    bool activate(const Vetra::StringID& id);
    void deactivate(const Vetra::StringID& id);
    void beginScene(Scene* scene, const Vetra::StringID& key);
    void endScene(Scene* scene);
    std::size_t paintCount() const { return m_paints.size(); }
    void endPaintsBeyond(std::size_t count);
    /// The scene dies during its own paint.
    void forget(const Scene* scene);
    unsigned char qualityAt(double scale);

private:
    struct Paint {
        Scene* scene;
        StrategyPtr strategy;
    };

    StrategyPtr registered(const Vetra::StringID& id) const;
    void choose(const Vetra::StringID& key);
    void switchTo(StrategyPtr strategy);
    void joinPaint();
    void leavePaint();

    std::map<Vetra::StringID, StrategyPtr> m_registered;
    const std::array<StrategyPtr, 3> m_standard;
    const StrategyPtr m_default;
    StrategyPtr m_active;
    std::vector<Paint> m_paints;         ///< under way, the innermost last
    int m_asking = 0;                    ///< calls of `getQuality` under way
    std::vector<StrategyPtr> m_replaced; ///< while they were asked
};

} // namespace Tova2
