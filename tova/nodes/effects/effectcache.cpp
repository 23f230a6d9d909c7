#include "nodes/effects/effectcache.h"

namespace Tova2 {

namespace {

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

EffectCache& EffectCache::instance()
{
    // Never destroyed: nodes may go later.
    static auto* const cache = new EffectCache;
    return *cache;
}

QImage EffectCache::find(const QByteArray& key)
{
    const auto found = m_byKey.find(viewOf(key));
    if (found == m_byKey.end())
        return {};
    found->second->share->touch();
    return found->second->image;
}

void EffectCache::keep(const QByteArray& key, const QImage& image, const NodeImpl* node)
{
    // A host's painter may have drawn the same meanwhile.
    if (image.isNull() || m_byKey.contains(viewOf(key)))
        return;
    m_entries.push_front({std::string(viewOf(key)), node, image, nullptr});
    const auto kept = m_entries.begin();
    m_byKey.emplace(kept->key, kept);
    if (node)
        m_byNode[node].push_back(kept);
    kept->share = std::make_unique<CacheBudget::Share>(CacheBudget::bytesOf(image.size()),
                                                       [this, kept] { erase(kept); });
}

void EffectCache::forget(const NodeImpl& node) noexcept
{
    ++m_forgotten;
    for (auto own = m_byNode.find(&node); own != m_byNode.end(); own = m_byNode.find(&node))
        erase(own->second.back());
}

void EffectCache::erase(Entries::iterator entry) noexcept
{
    if (entry->node) {
        const auto own = m_byNode.find(entry->node);
        std::erase(own->second, entry);
        if (own->second.empty())
            m_byNode.erase(own);
    }
    m_byKey.erase(entry->key);
    m_entries.erase(entry);
}

} // namespace Tova2
