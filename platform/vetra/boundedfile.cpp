#include "boundedfile.h"

#include "vetra/imageerrors.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vetra {

namespace {

namespace fs = std::filesystem;

class FileDescriptor {
public:
    explicit FileDescriptor(int file) : m_file(file) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (m_file >= 0)
            ::close(m_file);
    }
    int get() const { return m_file; }

private:
    int m_file;
};

fs::path canonicalOrRaise(const fs::path& path, const std::string& name)
{
    std::error_code error;
    auto resolved = fs::canonical(path, error);
    if (error)
        raise(ImageError::NotFound, name + ": " + error.message());
    return resolved;
}

bool isUnder(const fs::path& path, const fs::path& root)
{
    const auto relative = path.lexically_relative(root);
    return !relative.empty() && *relative.begin() != "..";
}

// Looked at before opening, since opening alone makes some devices act, and again after, for what
// was opened.
void requireRegular(const struct stat& status, const std::string& name)
{
    if (!S_ISREG(status.st_mode))
        raise(ImageError::NotARegularFile, name);
    if (status.st_size == 0)
        raise(ImageError::Empty, name);
    if (status.st_size > ImageLimits::MaxFileBytes)
        raise(ImageError::TooLarge, name);
}

QByteArray readAll(int file, const struct stat& status, const std::string& name)
{
    QByteArray bytes(static_cast<int>(status.st_size), Qt::Uninitialized);
    int filled = 0;
    while (filled < bytes.size()) {
        const auto count = ::read(file, bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            raise(ImageError::Unreadable, name + ": " + std::generic_category().message(errno));
        if (count == 0)
            break; // it shrank meanwhile; the decoder judges what there is
        filled += static_cast<int>(count);
    }
    bytes.truncate(filled);
    return bytes;
}

} // namespace

std::string resolveImagePath(const std::string& path, const ImagePolicy& policy)
{
    if (policy.files == ImagePolicy::Files::None)
        raise(ImageError::OutsideRoot, path);
    // The system would read such a name up to the zero only.
    if (path.empty() || path.find('\0') != std::string::npos)
        raise(ImageError::NotFound, path.c_str());
    if (policy.files == ImagePolicy::Files::Any)
        return canonicalOrRaise(path, path).string();
    const auto root = canonicalOrRaise(policy.root, policy.root);
    const auto resolved = canonicalOrRaise(root / path, path);
    if (!isUnder(resolved, root))
        raise(ImageError::OutsideRoot, path);
    return resolved.string();
}

QByteArray readBounded(const std::string& resolvedPath)
{
    struct stat status {};
    if (::lstat(resolvedPath.c_str(), &status) != 0)
        raise(ImageError::NotFound, resolvedPath);
    requireRegular(status, resolvedPath);
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC;
    const FileDescriptor file(::open(resolvedPath.c_str(), flags));
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0)
        raise(ImageError::Unreadable, resolvedPath + ": " + std::generic_category().message(errno));
    requireRegular(status, resolvedPath);
    return readAll(file.get(), status, resolvedPath);
}

} // namespace Vetra
