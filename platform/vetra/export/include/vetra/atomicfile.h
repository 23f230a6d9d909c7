#pragma once

#include "vetra/vetra_export.h"

#include <string>
#include <string_view>

namespace Vetra {

/// Writes a file so that a reader sees all of the new content or all of the old. The bytes go to a
/// temporary file in the same folder; `commit` brings them to the disk and puts the file in place.
/// Without a commit, or after an error, the temporary file is removed and the old file is as it
/// was.
///
/// Errors are of group "vetra:files" and name the file: NotARegularFile (the target is a folder,
/// device or pipe), CannotCreate, CannotWrite, CannotReplace.
class VETRA_EXPORT AtomicFile {
public:
    /// The target may be a symbolic link: then the file it names is replaced.
    explicit AtomicFile(const std::string& path);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    void write(std::string_view bytes);
    /// Once; nothing may be written afterwards.
    void commit();

    static void writeAll(const std::string& path, std::string_view bytes);

private:
    [[noreturn]] void fail(const char* key);
    void create(unsigned mode);
    void discard() noexcept;

    std::string m_path; // as the caller named it, for messages
    std::string m_target;
    std::string m_temporary;
    int m_file = -1;
};

} // namespace Vetra
