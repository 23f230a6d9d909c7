#include "mainwindow.h"
#include "messagebar.h"
#include "support/rows.h"
#include "temporaryfolder.h"

#include <gtest/gtest.h>

#include <tova/widget/glcanvas.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QTest>

namespace TovaView {
namespace {

class MainWindowTest : public testing::Test {
protected:
    MainWindowTest()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           m_folder.path("settings"));
        m_folder.write("good.plain", "graph 1 2 2\nnode a 1 1 1 1 a solid box black white\nstop\n");
        m_folder.write("other.plain", "graph 1 2 2\nstop\n");
        m_folder.write("bad.plain", "graph 1 1 1\nnod\nstop\n");
        m_window.resize(400, 300);
        m_window.show();
        EXPECT_EQ(titleAfterOpening("good.plain"), "good.plain");
    }

    /// The file that is shown then.
    static std::string titleAfter(MainWindow& window)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isLoading(); }, 60'000));
        return window.windowTitle().section(QLatin1Char(' '), 0, 0).toStdString();
    }
    std::string titleAfterOpening(const char* name)
    {
        m_window.open(m_folder.path(name));
        return titleAfter(m_window);
    }

    const TemporaryFolder m_folder;
    MainWindow m_window{Options()};
};

TEST_F(MainWindowTest, FailedOpenLeavesTheDiagramAndSaysWhy)
{
    EXPECT_EQ(titleAfterOpening("bad.plain"), "good.plain");
    const auto isAbout = [](const QLabel* label) {
        return label->isVisible() && label->toolTip().contains(QLatin1String("bad.plain:2: "));
    };
    const auto labels = m_window.findChildren<QLabel*>();
    EXPECT_EQ(std::count_if(labels.begin(), labels.end(), isAbout), 1);
    EXPECT_EQ(titleAfterOpening("other.plain"), "other.plain");
    EXPECT_EQ(std::count_if(labels.begin(), labels.end(), isAbout), 0) << "it is out of date";
    EXPECT_EQ(RecentFiles::list(),
              (QStringList{m_folder.path("other.plain"), m_folder.path("good.plain")}));
}

TEST_F(MainWindowTest, TheLastOfSeveralFilesIsShownAndACancelledOneIsNot)
{
    m_folder.write("slow.dot", "digraph { a -> b -> c }");
    m_window.open(m_folder.path("slow.dot"));
    EXPECT_EQ(titleAfterOpening("other.plain"), "other.plain");
    m_window.open(m_folder.path("slow.dot"));
    for (QPushButton* button : m_window.findChildren<QPushButton*>())
        if (button->text() == QLatin1String("Cancel"))
            button->click();
    EXPECT_FALSE(m_window.isLoading());
    EXPECT_EQ(titleAfterOpening("good.plain"), "good.plain");
}

TEST_F(MainWindowTest, HelpIsShownWhole)
{
    for (QAction* action : m_window.findChildren<QAction*>())
        if (action->text() == QLatin1String("&Keys and Mouse"))
            action->trigger();
    const auto* const help = m_window.findChild<QDialog*>();
    ASSERT_TRUE(help);
    const auto* const text = help->findChild<QLabel*>();
    EXPECT_GE(text->width(), text->sizeHint().width());
    EXPECT_LE(text->geometry().right(), help->width());
}

/// Whatever is in the menus, with a diagram and without.
TEST_F(MainWindowTest, MenuActionsThatAskNothingDoNoHarm)
{
    MainWindow empty{Options()};
    for (MainWindow* window : {&m_window, &empty})
        for (QAction* action : window->findChildren<QAction*>())
            if (action->isEnabled() && !action->text().contains(QChar(0x2026)) && !action->menu() &&
                !action->text().contains(QLatin1String("Quit")))
                action->trigger();
    EXPECT_EQ(titleAfter(m_window), "good.plain");
    empty.open(m_folder.path("good.plain"));
    EXPECT_EQ(titleAfter(empty), "good.plain");
}

TEST_F(MainWindowTest, AFileDroppedOnTheCanvasOpens)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_folder.path("other.plain"))});
    QWidget* canvas = m_window.childAt(m_window.rect().center());
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDragMoveEvent move({12, 12}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &move);
    EXPECT_TRUE(move.isAccepted());
    QDropEvent drop({12, 12}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &drop);
    QApplication::processEvents();
    EXPECT_EQ(titleAfter(m_window), "other.plain");
}

struct PercentageCase : NamedRow {
    const char* text;
    std::optional<double> scale;
};

class PercentageTest : public testing::TestWithParam<PercentageCase> {};

TEST_P(PercentageTest, IsReadAsPeopleTypeIt)
{
    EXPECT_EQ(ZoomBox::scaleOf(QString::fromUtf8(GetParam().text)), GetParam().scale);
}

INSTANTIATE_TEST_SUITE_P(ZoomBox, PercentageTest,
                         testing::Values(PercentageCase{{"Bare"}, "75", 0.75},
                                         PercentageCase{{"WithSign"}, " 12.5 % ", 0.125},
                                         PercentageCase{{"Zero"}, "0", {}},
                                         PercentageCase{{"Negative"}, "-50%", {}},
                                         PercentageCase{{"NoNumber"}, "nan", {}},
                                         PercentageCase{{"Huge"}, "1e300", {}},
                                         PercentageCase{{"Nothing"}, " % ", {}}),
                         rowName);

} // namespace
} // namespace TovaView
