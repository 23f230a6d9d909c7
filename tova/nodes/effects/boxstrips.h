#pragma once

#include "nodes/effects/boxpatches.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <boost/container/static_vector.hpp>

#include <cstddef>
#include <memory>
#include <unordered_map>

namespace Tova2 {

/// A softened box on whole pixels, without what the node covers afterwards.
struct BoxStripsKey {
    BoxEdge edge;
    QSize size;    ///< with all that softening reaches
    int phases;    ///< of its four edges
    QRect covered; ///< from its corner; may be empty

    bool operator==(const BoxStripsKey&) const = default;
    struct Hash {
        std::size_t operator()(const BoxStripsKey& key) const noexcept;
    };
};

/// Plain pictures that are copied as they are: cut from larger ones, smooth painters would sample
/// them pixel by pixel.
struct BoxStrips {
    struct Strip {
        QPoint corner;
        QImage image;
    };
    boost::container::static_vector<Strip, 4> strips;

    BoxStrips() = default;
    /// `picture` is of the whole box.
    BoxStrips(const QImage& picture, const QRect& covered);
    std::size_t bytes() const;
};

/// Strips in use, within the common budget.
class BoxStripsCache {
public:
    static BoxStripsCache& instance();

    /// Null when there are none; good until `keep`.
    const BoxStrips* find(const BoxStripsKey& key);
    void keep(const BoxStripsKey& key, const BoxStrips& strips);

private:
    struct Kept {
        BoxStrips strips;
        std::unique_ptr<CacheBudget::Share> share;
    };

    BoxStripsCache() = default;

    std::unordered_map<BoxStripsKey, Kept, BoxStripsKey::Hash> m_kept;
};

} // namespace Tova2
