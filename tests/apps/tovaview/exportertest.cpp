#include "exporter.h"
#include "plainreader.h"
#include "scenebuilder.h"
#include "temporaryfolder.h"

#include <gmock/gmock.h>

#include <QDir>

#include <unistd.h>

namespace TovaView {
namespace {

using testing::HasSubstr;

class ExporterTest : public testing::Test {
protected:
    ExporterTest()
    {
        const Diagram diagram = readPlain(
            QStringLiteral("f"), "graph 1 2 1\n"
                                 "node a 1 0.5 1 0.5 text filled box red \"#0000ff\"\nstop\n");
        m_scene = SceneBuilder(diagram).build();
    }

    QByteArray contents(const char* name) const
    {
        QFile file(m_folder.path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList files() const
    {
        return QDir(m_folder.path(".")).entryList(QDir::Files | QDir::Hidden);
    }

    TemporaryFolder m_folder;
    DiagramScene m_scene;
    QStringList m_notes;
};

TEST_F(ExporterTest, PictureHasGroundAndBlock)
{
    writePng(paintPicture(m_scene, {2, {}}, {}, m_notes), m_folder.path("a.png"));
    const QImage picture(m_folder.path("a.png"));
    EXPECT_EQ(picture.size(), QSize(320, 176)); // with the margin of 8 points
    EXPECT_EQ(picture.pixel(1, 1), 0xffffffffu);
    EXPECT_EQ(picture.pixel(94, 62), 0xff0000ffu);
}

TEST_F(ExporterTest, PdfIsOnePageOfTheAreasSize)
{
    writePdf(m_scene, {}, m_folder.path("a.pdf"), m_notes);
    const QByteArray pdf = contents("a.pdf");
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.contains("/Count 1"));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 160") && pdf.contains(" 88"));
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.pdf")}) << "nothing else is left behind";
}

TEST_F(ExporterTest, TooLargeAWishIsRefused)
{
    EXPECT_THAT(complaintOf([&] {
                    paintPicture(m_scene, {500, {}}, QStringLiteral("a.png"), m_notes);
                }),
                HasSubstr("a.png: a picture of that size is too large"));
}

TEST_F(ExporterTest, BadTargetsAreNamedAndLeaveNothing)
{
    const QImage picture = paintPicture(m_scene, {}, {}, m_notes);
    for (const QString& target : {m_folder.path("missing/a.png"), m_folder.path("."),
                                  QStringLiteral("/dev/full"), QString(5000, QLatin1Char('x'))}) {
        EXPECT_THAT(complaintOf([&] { writePng(picture, target); }), HasSubstr("cannot write"));
        EXPECT_THAT(complaintOf([&] { writePdf(m_scene, {}, target, m_notes); }),
                    HasSubstr("cannot write"));
    }
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(ExporterTest, ReadOnlyFolderKeepsTheOldFile)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write anywhere";
    m_folder.write("a.png", "old");
    QFile::setPermissions(m_folder.path("."), QFile::ReadOwner | QFile::ExeOwner);
    const QImage picture = paintPicture(m_scene, {}, {}, m_notes);
    EXPECT_THAT(complaintOf([&] { writePng(picture, m_folder.path("a.png")); }),
                HasSubstr("cannot write"));
    EXPECT_EQ(contents("a.png"), "old");
    QFile::setPermissions(m_folder.path("."),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace
} // namespace TovaView
