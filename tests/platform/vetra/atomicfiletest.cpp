#include "vetra/atomicfile.h"

#include "fileops.h"
#include "support.h"

#include <QDir>

#include <cerrno>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace Vetra {
namespace {

/// What the stand-ins for the system calls do: the call of this number fails.
int failingCall = 0;
int callCount = 0;
int failure = 0;

bool failsNow()
{
    errno = failure;
    return ++callCount == failingCall;
}

ssize_t writeAtMostThree(int file, const void* bytes, std::size_t count)
{
    return failsNow() ? -1 : ::write(file, bytes, std::min<std::size_t>(count, 3));
}

int syncOrFail(int file)
{
    return failsNow() ? -1 : ::fsync(file);
}

int closeOrFail(int file)
{
    const int result = ::close(file);
    return failsNow() ? -1 : result;
}

int renameOrFail(const char* from, const char* to)
{
    return failsNow() ? -1 : std::rename(from, to);
}

class AtomicFileTest : public testing::Test {
protected:
    ~AtomicFileTest() override { fileOps() = m_original; }
    int fileCount() const
    {
        return QDir(QString::fromStdString(m_folder.path()))
            .entryList(QDir::Files | QDir::Hidden)
            .size();
    }

    Folder m_folder;
    FileOps m_original = fileOps();
};

TEST_F(AtomicFileTest, EachFailingCallKeepsTheOldFileAndLeavesNoOther)
{
    const auto target = m_folder.write("chart.png", "old");
    fileOps() = {writeAtMostThree, syncOrFail, closeOrFail, renameOrFail};
    for (const int error : {ENOSPC, EIO}) {
        failure = error;
        // Nine bytes in three short writes, then sync, close and rename.
        for (failingCall = 1; failingCall <= 6; ++failingCall) {
            callCount = 0;
            const auto key = keyOf([&] { AtomicFile::writeAll(target, "new bytes"); });
            EXPECT_EQ(key, failingCall == 6 ? "CannotReplace" : "CannotWrite") << failingCall;
            EXPECT_EQ(Folder::read(target), "old");
            EXPECT_EQ(fileCount(), 1);
        }
    }
    failingCall = 0;
    AtomicFile::writeAll(target, "new bytes");
    EXPECT_EQ(Folder::read(target), "new bytes");
}

TEST_F(AtomicFileTest, AnInterruptedWriteIsTakenUpAgain)
{
    fileOps().write = writeAtMostThree;
    failure = EINTR;
    callCount = 0;
    failingCall = 2;
    AtomicFile::writeAll(m_folder.path("a"), "12345");
    EXPECT_EQ(Folder::read(m_folder.path("a")), "12345");
}

TEST_F(AtomicFileTest, WithoutCommitNothingHappened)
{
    const auto target = m_folder.write("a", "old");
    {
        AtomicFile file(target);
        file.write("half");
    }
    EXPECT_EQ(Folder::read(target), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AtomicFileTest, RefusesWhatIsNoFile)
{
    EXPECT_EQ(keyOf([&] { AtomicFile::writeAll(m_folder.path(), "x"); }), "NotARegularFile");
    EXPECT_EQ(keyOf([&] { AtomicFile::writeAll("/dev/full", "x"); }), "NotARegularFile");
    EXPECT_EQ(keyOf([&] { AtomicFile::writeAll(m_folder.path("no/such"), "x"); }), "CannotCreate");
    EXPECT_EQ(keyOf([&] { AtomicFile::writeAll(m_folder.path(std::string(4096, 'n')), "x"); }),
              "CannotReplace");
    EXPECT_EQ(fileCount(), 0);
}

TEST_F(AtomicFileTest, KeepsModeAndFollowsALink)
{
    const auto target = m_folder.write("secret", "old");
    ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
    std::filesystem::create_symlink(target, m_folder.path("link"));
    AtomicFile::writeAll(m_folder.path("link"), "new");
    struct stat status {};
    ASSERT_EQ(::stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
    EXPECT_EQ(Folder::read(target), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.path("link")));
}

TEST_F(AtomicFileTest, TheMessageNamesFileAndReason)
{
    try {
        AtomicFile::writeAll(m_folder.path("no/such"), "x");
        FAIL();
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), testing::HasSubstr(m_folder.path("no/such")));
        EXPECT_THAT(error.what(), testing::HasSubstr("No such file"));
    }
}

} // namespace
} // namespace Vetra
