#include "nodes/effects/boxstrips.h"

#include <boost/container_hash/hash.hpp>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Tova2 {

namespace {

/// Softening fades below a level of colour well within its reach.
QRect inkOf(const QImage& picture)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        const auto* const end = line + picture.width();
        const auto isInk = [](QRgb pixel) { return pixel != 0; };
        const auto* const first = std::find_if(line, end, isInk);
        if (first == end)
            continue;
        const auto last =
            std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(line), isInk);
        ink |= QRect(QPoint(static_cast<int>(first - line), y),
                     QPoint(static_cast<int>(last.base() - line) - 1, y));
    }
    return ink;
}

} // namespace

std::size_t BoxStripsKey::Hash::operator()(const BoxStripsKey& key) const noexcept
{
    std::size_t hash = static_cast<std::size_t>(key.phases);
    for (const double value : {key.edge.radius, key.edge.deviationX, key.edge.gain})
        boost::hash_combine(hash, value);
    for (const int value : {key.size.width(), key.size.height(), key.covered.x(), key.covered.y()})
        boost::hash_combine(hash, value);
    boost::hash_combine(hash, key.edge.color);
    return hash;
}

BoxStrips::BoxStrips(const QImage& picture, const QRect& covered)
{
    const auto add = [&](const QRect& part) {
        if (!part.isEmpty())
            strips.push_back({part.topLeft(), picture.copy(part)});
    };
    const QRect box = inkOf(picture);
    const QRect hole = covered & box;
    if (hole.isEmpty()) {
        add(box);
        return;
    }
    add({box.topLeft(), QPoint(box.right(), hole.top() - 1)});
    add({QPoint(box.left(), hole.top()), QPoint(hole.left() - 1, hole.bottom())});
    add({QPoint(hole.right() + 1, hole.top()), QPoint(box.right(), hole.bottom())});
    add({QPoint(box.left(), hole.bottom() + 1), box.bottomRight()});
}

std::size_t BoxStrips::bytes() const
{
    std::size_t sum = sizeof *this;
    for (const Strip& strip : strips)
        sum += static_cast<std::size_t>(strip.image.sizeInBytes());
    return sum;
}

BoxStripsCache& BoxStripsCache::instance()
{
    // Never destroyed: so is the budget that its shares call.
    static auto* const cache = new BoxStripsCache;
    return *cache;
}

const BoxStrips* BoxStripsCache::find(const BoxStripsKey& key)
{
    const auto found = m_kept.find(key);
    if (found == m_kept.end())
        return nullptr;
    found->second.share->touch();
    return &found->second.strips;
}

void BoxStripsCache::keep(const BoxStripsKey& key, const BoxStrips& strips)
{
    const auto [entry, isNew] = m_kept.try_emplace(key);
    if (!isNew)
        return;
    entry->second.strips = strips;
    entry->second.share = std::make_unique<CacheBudget::Share>(
        strips.bytes(), [this, key] { m_kept.erase(m_kept.find(key)); });
}

} // namespace Tova2
