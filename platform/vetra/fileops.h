#pragma once

#include <cstddef>
#include <sys/types.h>

namespace Vetra {

/// The system calls whose failure a full or broken disk shows; tests put failing ones in their
/// place.
struct FileOps {
    ssize_t (*write)(int file, const void* bytes, std::size_t count);
    int (*fsync)(int file);
    int (*close)(int file);
    int (*rename)(const char* from, const char* to);
};

FileOps& fileOps() noexcept;

} // namespace Vetra
