#pragma once

#include "nodes/cachebudget.h"

#include <QByteArray>
#include <QImage>

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Tova2 {

class NodeImpl;

/// Pictures of softened silhouettes by all that they depend on, so that equal nodes share them.
class EffectCache {
public:
    static EffectCache& instance();

    /// Null when there is none.
    QImage find(const QByteArray& key);
    /// Of a silhouette that only its node can tell apart when one is given.
    void keep(const QByteArray& key, const QImage& image, const NodeImpl* node);
    /// After a change of a node that pictures were kept for.
    void forget(const NodeImpl& node) noexcept;
    /// Moves on whenever something is forgotten.
    std::uint64_t forgotten() const { return m_forgotten; }

private:
    struct Entry {
        std::string key;
        const NodeImpl* node;
        QImage image;
        std::unique_ptr<CacheBudget::Share> share;
    };
    using Entries = std::list<Entry>;

    EffectCache() = default;
    void erase(Entries::iterator entry) noexcept;

    Entries m_entries;
    std::unordered_map<std::string_view, Entries::iterator> m_byKey; ///< into the entries' keys
    std::unordered_map<const NodeImpl*, std::vector<Entries::iterator>> m_byNode;
    std::uint64_t m_forgotten = 0;
};

} // namespace Tova2
