#include "inputfile.h"

#include "demodiagram.h"
#include "fileerror.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace TovaView {
namespace {

constexpr qint64 largestFile = 64 * 1024 * 1024;

QString systemReason()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// Opens without blocking: a path may name a FIFO or a device.
void openRegular(QFile& file, const QString& path)
{
    const int handle =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0)
        throw FileError(path, 0, QStringLiteral("cannot open: %1").arg(systemReason()));
    struct stat info {};
    const bool regular = ::fstat(handle, &info) == 0 && S_ISREG(info.st_mode);
    if (!regular || !file.open(handle, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(handle);
        throw FileError(path, 0,
                        S_ISDIR(info.st_mode) ? QStringLiteral("is a directory")
                                              : QStringLiteral("is not a regular file"));
    }
}

/// Counts the bytes of one UTF-8 sequence, 0 when it is malformed, overlong or a surrogate.
int sequenceLength(const unsigned char* at, const unsigned char* end)
{
    if (*at < 0x80)
        return 1;
    const int length = *at >= 0xf0 ? 4 : *at >= 0xe0 ? 3 : 2;
    if (*at < 0xc2 || *at > 0xf4 || end - at < length)
        return 0;
    for (int i = 1; i < length; ++i) {
        if ((at[i] & 0xc0) != 0x80)
            return 0;
    }
    const bool bad = (at[0] == 0xe0 && at[1] < 0xa0) || (at[0] == 0xed && at[1] > 0x9f) ||
                     (at[0] == 0xf0 && at[1] < 0x90) || (at[0] == 0xf4 && at[1] > 0x8f);
    return bad ? 0 : length;
}

bool isUtf8(const QByteArray& bytes)
{
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.constData());
    const auto* end = at + bytes.size();
    while (at < end) {
        const int length = sequenceLength(at, end);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

} // namespace

QByteArray readText(const QString& path)
{
    QFile file(path);
    if (isDemoDiagram(path))
        file.open(QIODevice::ReadOnly);
    else
        openRegular(file, path);
    // One byte more than allowed tells a file that grows while it is read, too.
    QByteArray bytes = file.read(largestFile + 1);
    if (file.error() != QFileDevice::NoError)
        throw FileError(path, 0, QStringLiteral("cannot read: %1").arg(file.errorString()));
    if (bytes.size() > largestFile)
        throw FileError(path, 0, QStringLiteral("is larger than 64 MiB"));
    if (bytes.startsWith("\xef\xbb\xbf"))
        bytes.remove(0, 3);
    if (bytes.trimmed().isEmpty())
        throw FileError(path, 0, QStringLiteral("is empty"));
    if (const int nul = bytes.indexOf('\0'); nul >= 0)
        throw FileError(path, bytes.left(nul).count('\n') + 1, QStringLiteral("is a binary file"));
    return toUtf8(bytes);
}

QByteArray toUtf8(const QByteArray& bytes)
{
    return isUtf8(bytes) ? bytes : QString::fromLatin1(bytes).toUtf8();
}

} // namespace TovaView
