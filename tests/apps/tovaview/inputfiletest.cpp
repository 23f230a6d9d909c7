#include "inputfile.h"
#include "diagramfile.h"
#include "support/rows.h"
#include "temporaryfolder.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace TovaView {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

struct EncodingCase : NamedRow {
    QByteArray bytes;
    QByteArray utf8;
};

class EncodingTest : public testing::TestWithParam<EncodingCase> {};

TEST_P(EncodingTest, ComesOutAsUtf8)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readText(folder.write("a", GetParam().bytes)), GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(InputFile, EncodingTest,
                         testing::Values(EncodingCase{"Utf8Stays", "caf\xc3\xa9", "caf\xc3\xa9"},
                                         EncodingCase{"MarkIsDropped", "\xef\xbb\xbfx", "x"},
                                         EncodingCase{"Latin1", "caf\xe9", "caf\xc3\xa9"},
                                         EncodingCase{"Overlong", "\xc0\xaf", "\xc3\x80\xc2\xaf"},
                                         EncodingCase{"CutShort", "a\xe2\x82", "a\xc3\xa2\xc2\x82"},
                                         EncodingCase{"Astral", "\xf0\x9f\x98\x80",
                                                      "\xf0\x9f\x98\x80"}),
                         rowName);

struct RefusedCase : NamedRow {
    QByteArray bytes;
    const char* complaint;
};

class RefusedFileTest : public testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedFileTest, IsNamedWithItsFault)
{
    const TemporaryFolder folder;
    const QString path = folder.write("bad.dot", GetParam().bytes);
    EXPECT_EQ(complaintOf([&] { readText(path); }), path.toStdString() + GetParam().complaint);
}

INSTANTIATE_TEST_SUITE_P(InputFile, RefusedFileTest,
                         testing::Values(RefusedCase{"Empty", "", ": is empty"},
                                         RefusedCase{"Blank", " \n\t\n", ": is empty"},
                                         RefusedCase{"Binary", QByteArray("a\nb\0c", 5),
                                                     ":2: is a binary file"}),
                         rowName);

TEST(InputFileTest, RefusesWhatIsNoRegularFile)
{
    const TemporaryFolder folder;
    EXPECT_THAT(complaintOf([&] { readText(folder.path("missing")); }), HasSubstr("cannot open"));
    EXPECT_THAT(complaintOf([&] { readText(folder.path(".")); }), EndsWith("is a directory"));
    ASSERT_EQ(::mkfifo(folder.path("fifo").toLocal8Bit().constData(), 0600), 0);
    EXPECT_THAT(complaintOf([&] { readText(folder.path("fifo")); }),
                EndsWith("is not a regular file"));
    EXPECT_THAT(complaintOf([] { readText(QStringLiteral("/dev/zero")); }),
                EndsWith("is not a regular file"));
}

TEST(InputFileTest, RefusesFilesOfUnknownKind)
{
    const TemporaryFolder folder;
    const QString path = folder.write("a.txt", "digraph {}");
    QStringList notes;
    EXPECT_THAT(complaintOf([&] { readDiagram(path, notes); }), HasSubstr("neither .dot"));
}

TEST(InputFileTest, HostileNamesMakeOneLine)
{
    const QString name = QStringLiteral("/nowhere/a\nb\x1b[31m") + QString(5000, QLatin1Char('x'));
    const std::string complaint = complaintOf([&] { readText(name); });
    EXPECT_THAT(complaint, testing::Not(HasSubstr("\n")));
    EXPECT_THAT(complaint, testing::Not(HasSubstr("\x1b")));
    EXPECT_LT(complaint.size(), 1000u);
}

} // namespace
} // namespace TovaView
