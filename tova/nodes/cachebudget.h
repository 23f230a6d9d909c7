#pragma once

#include <cstddef>
#include <functional>
#include <list>

class QSize;

namespace Tova2 {

/// Keeps the pixels of all caches of the process within `Limits::allCachesBytes` together. GUI
/// thread only.
class CacheBudget {
public:
    class Share;

    /// Whether one cache may keep a picture of so many pixels, of 32 bits each. False when it is
    /// empty.
    static bool admits(const QSize& pixels);
    static std::size_t bytesOf(const QSize& pixels);
    /// Of all pictures that are kept.
    static std::size_t bytes();

private:
    struct Entry {
        std::size_t bytes;
        std::function<void()> letGo;
    };
    using Entries = std::list<Entry>;

    static CacheBudget& instance();
    void makeRoomFor(std::size_t bytes);

    Entries m_entries; ///< most recently used first
    std::size_t m_bytes = 0;
};

/// The room that one kept picture takes, from its making to its end.
class CacheBudget::Share {
public:
    /// Lets pictures go that were used longest ago, until this one fits. `letGo` is called at most
    /// once, when it is this one's turn; it has to end the picture and with it the share, and
    /// nothing else.
    Share(std::size_t bytes, std::function<void()> letGo);
    ~Share();
    Share(const Share&) = delete;
    Share& operator=(const Share&) = delete;

    /// To be called at each use.
    void touch() noexcept;

private:
    Entries::iterator m_entry;
};

} // namespace Tova2
