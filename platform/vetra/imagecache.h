#pragma once

#include "vetra/image.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>

namespace Vetra {

/// What tells one state of a file from the next.
struct FileStamp {
    std::uint64_t device = 0, inode = 0, bytes = 0;
    std::int64_t seconds = 0, nanoseconds = 0;

    static FileStamp of(const std::string& path) noexcept; ///< all zero where there is none
    bool operator==(const FileStamp&) const = default;
};

/// Images by path, bounded in bytes, the least recently used leaving first.
class ImageCache {
public:
    explicit ImageCache(std::size_t limit) : m_limit(limit) {}

    Holder<Image> find(const std::string& path, const FileStamp& stamp);
    void insert(const std::string& path, const FileStamp& stamp, const Holder<Image>& image);
    void clear();
    void setLimit(std::size_t bytes);
    std::size_t limit() const noexcept { return m_limit; }
    std::size_t bytes() const noexcept { return m_bytes; }

private:
    struct Entry {
        std::string path;
        FileStamp stamp;
        Holder<Image> image;
        std::size_t bytes;
    };
    using Entries = std::list<Entry>;
    void remove(Entries::iterator entry);
    void trim();

    std::size_t m_limit;
    std::size_t m_bytes = 0;
    Entries m_entries; // the most recently used first
    std::unordered_map<std::string, Entries::iterator> m_byPath;
};

} // namespace Vetra
