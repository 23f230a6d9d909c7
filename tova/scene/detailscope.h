#pragma once

#include <cstddef>

namespace Tova2 {

class LODManagerPrivate;
class ScenePrivate;

/// One paint of a scene, as its level-of-detail strategy hears of it: also of the end of one that
/// throws, or that loses its scene on the way.
class DetailScope {
public:
    explicit DetailScope(ScenePrivate& scene);
    ~DetailScope();
    DetailScope(const DetailScope&) = delete;
    DetailScope& operator=(const DetailScope&) = delete;

    unsigned char qualityAt(double scale) const;

private:
    LODManagerPrivate& m_manager;
    std::size_t m_outerPaints;
};

} // namespace Tova2
