#include "vetra/atomicfile.h"

#include "fileops.h"
#include "vetra/error.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vetra {

namespace {

// Not derived from the target's name, which may already be as long as the file system allows.
std::string temporaryBeside(const std::string& target)
{
    static std::atomic<unsigned> serial{0};
    const auto name =
        ".tova-" + std::to_string(::getpid()) + '-' + std::to_string(serial++) + ".tmp";
    return (std::filesystem::path(target).parent_path() / name).string();
}

std::string withLinksResolved(const std::string& path)
{
    std::error_code error;
    const auto resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved.string();
}

// Best effort: the name has changed already, and some file systems refuse to sync a folder.
void syncFolderOf(const std::string& path)
{
    auto folder = std::filesystem::path(path).parent_path().string();
    const int file =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    ::fsync(file);
    ::close(file);
}

} // namespace

FileOps& fileOps() noexcept
{
    static FileOps ops{&::write, &::fsync, &::close, &std::rename};
    return ops;
}

AtomicFile::AtomicFile(const std::string& path) : m_path(path), m_target(withLinksResolved(path))
{
    struct stat old {};
    const bool replaces = ::stat(m_target.c_str(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode))
        throw Error("vetra:files", "NotARegularFile", m_path);
    // A private file must not be readable for others even while it is written.
    create(replaces ? 0600 : 0666);
    if (replaces)
        static_cast<void>(::fchmod(m_file, old.st_mode & 07777));
}

AtomicFile::~AtomicFile()
{
    discard();
}

void AtomicFile::create(unsigned mode)
{
    constexpr int attempts = 100;
    for (int i = 0; i < attempts && m_file < 0; ++i) {
        m_temporary = temporaryBeside(m_target);
        m_file = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (m_file < 0 && errno != EEXIST)
            break;
    }
    if (m_file < 0) {
        m_temporary.clear();
        fail("CannotCreate");
    }
}

void AtomicFile::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written = fileOps().write(m_file, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0) {
            errno = ENOSPC;
            fail("CannotWrite");
        } else if (errno != EINTR) {
            fail("CannotWrite");
        }
    }
}

void AtomicFile::commit()
{
    if (m_file < 0) {
        errno = EBADF;
        fail("CannotWrite");
    }
    if (fileOps().fsync(m_file) != 0)
        fail("CannotWrite");
    if (fileOps().close(std::exchange(m_file, -1)) != 0)
        fail("CannotWrite");
    if (fileOps().rename(m_temporary.c_str(), m_target.c_str()) != 0)
        fail("CannotReplace");
    m_temporary.clear();
    syncFolderOf(m_target);
}

void AtomicFile::writeAll(const std::string& path, std::string_view bytes)
{
    AtomicFile file(path);
    file.write(bytes);
    file.commit();
}

void AtomicFile::fail(const char* key)
{
    const auto reason = std::generic_category().message(errno);
    discard();
    throw Error("vetra:files", key, m_path + ": " + reason);
}

void AtomicFile::discard() noexcept
{
    if (m_file >= 0)
        ::close(std::exchange(m_file, -1));
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    m_temporary.clear();
}

} // namespace Vetra
