#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/stringid.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace Tova2 {

class LODManagerPrivate;
class LODStrategy;
class Scene;

/// Decides on the level of detail of each paint, by the strategy that the scene's key names. One
/// for the process; lives as long as it does. GUI thread only.
///
/// The default strategy, `FullQualityLODStrategy` and `MassiveModelLODStrategy` are registered from
/// the start until `terminate_tova`.
class TOVA_EXPORT LODManager {
public:
    static LODManager& instance();
    LODManager(const LODManager&) = delete;
    LODManager& operator=(const LODManager&) = delete;

    /// In place of one of the same identifier. Null, and one without an identifier, which no key
    /// could name, are ignored.
    void registerStrategy(const boost::shared_ptr<LODStrategy>& strategy);
    /// False when it is not registered. The active strategy stays active until another one is.
    bool unRegisterStrategy(const boost::shared_ptr<LODStrategy>& strategy);
    bool unRegisterStrategy(const Vetra::StringID& id);

    /// False when none is registered as `id`; nothing changes then.
    bool activateStrategy(const Vetra::StringID& id);
    /// Does nothing unless the strategy is the active one.
    void deactivateStrategy(const Vetra::StringID& id);

    /// The library calls these around each paint of a scene. An empty key stands for the default
    /// strategy; an unknown one leaves the active strategy, or brings the default one.
    void beginScene(Scene* scene, const Vetra::StringID& strategyKey);
    /// Back to the scene and strategy of the paint around this one, if there is any. Paints begun
    /// later than this scene's end with it; a scene that is not being painted is ignored.
    void endScene(Scene* scene);
    /// By the active strategy; the default one becomes active when none is.
    unsigned char getQualityLevel(double scale) const;

private:
    friend class LODManagerPrivate;
    LODManager();
    ~LODManager();

    std::unique_ptr<LODManagerPrivate> d;

    TOVA_PLAIN_TYPE("Tova2.LODManager");
};

} // namespace Tova2
