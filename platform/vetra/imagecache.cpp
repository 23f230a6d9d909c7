#include "imagecache.h"

#include <sys/stat.h>

namespace Vetra {

FileStamp FileStamp::of(const std::string& path) noexcept
{
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

Holder<Image> ImageCache::find(const std::string& path, const FileStamp& stamp)
{
    const auto found = m_byPath.find(path);
    if (found == m_byPath.end())
        return {};
    if (found->second->stamp != stamp) {
        remove(found->second);
        return {};
    }
    m_entries.splice(m_entries.begin(), m_entries, found->second);
    return found->second->image;
}

void ImageCache::insert(const std::string& path, const FileStamp& stamp, const Holder<Image>& image)
{
    if (const auto old = m_byPath.find(path); old != m_byPath.end())
        remove(old->second);
    // Four bytes a pixel also for a drawing: its elements cost about as much, and its pixels may be
    // asked for.
    const auto bytes = std::size_t(4) * image->width() * image->height();
    if (bytes > m_limit)
        return;
    m_entries.push_front({path, stamp, image, bytes});
    m_byPath[path] = m_entries.begin();
    m_bytes += bytes;
    trim();
}

void ImageCache::clear()
{
    m_byPath.clear();
    m_entries.clear();
    m_bytes = 0;
}

void ImageCache::setLimit(std::size_t bytes)
{
    m_limit = bytes;
    trim();
}

void ImageCache::remove(Entries::iterator entry)
{
    m_bytes -= entry->bytes;
    m_byPath.erase(entry->path);
    m_entries.erase(entry);
}

void ImageCache::trim()
{
    while (m_bytes > m_limit)
        remove(std::prev(m_entries.end()));
}

} // namespace Vetra
