#include "support/rows.h"

#include "tova/widget/glcanvas.h"
#include "tova/widget/webblock.h"
#include "vetra/qt.h"
#include "webview/webview.h"
#include "widgets/qt.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QWebFrame>
#include <QWebView>

namespace Tova2 {
namespace {

/// A canvas with a page, a server that counts who calls, and a red picture in a file.
class SealedWebBlockTest : public testing::Test {
protected:
    SealedWebBlockTest()
    {
        enableWebBlocks();
        m_canvas->setSize({200, 200});
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] { ++m_requests; });
        QImage red(50, 50, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(m_directory.filePath(QStringLiteral("red.png")));
    }
    ~SealedWebBlockTest() override
    {
        setWebBlockFactory({});
        m_canvas->destroy();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// "{net}" and "{file}" stand for what must not be asked for.
    void show(const char* html)
    {
        const QString page = QString::fromUtf8(html)
                                 .replace(QStringLiteral("{net}"), net())
                                 .replace(QStringLiteral("{file}"), file());
        ASSERT_TRUE(m_canvas->setWebBlock({0, 0, 200, 200}, page.toStdString()));
        toQt(*m_canvas)->show();
        settle(60);
    }
    QString net() const
    {
        return QStringLiteral("http://127.0.0.1:%1/x").arg(m_server.serverPort());
    }
    QString file() const
    {
        return QStringLiteral("file://") + m_directory.filePath(QStringLiteral("red.png"));
    }
    static void settle(int milliseconds)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    }
    QWebView* view() const { return toQt(*m_canvas)->findChild<QWebView*>(); }
    QImage picture() { return toQt(m_canvas->getPixmapOfBrowserInView()).toImage(); }
    void click()
    {
        const QPoint at(20, 20);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(view(), &event);
        }
        settle(60);
    }

    QTemporaryDir m_directory;
    QTcpServer m_server;
    int m_requests = 0;
    GLCanvas* const m_canvas = new GLCanvas("canvas");
};

TEST_F(SealedWebBlockTest, ShowsThePageOverTheScene)
{
    show("<body style='background:#00ff00'><p style='font-size:60px'>text</p>");
    EXPECT_EQ(picture().pixelColor(199, 199), QColor(0, 255, 0));
    EXPECT_NE(picture().convertToFormat(QImage::Format_RGB32),
              QImage(200, 200, QImage::Format_RGB32));
    m_canvas->setScale(0.5);
    EXPECT_EQ(view()->size(), QSize(100, 100));
    EXPECT_EQ(view()->zoomFactor(), 0.5);
}

struct HostileCase : NamedRow {
    const char* html;
};
class HostilePageTest : public SealedWebBlockTest,
                        public testing::WithParamInterface<HostileCase> {};

TEST_P(HostilePageTest, AsksForNothingAndGoesNowhere)
{
    show((std::string("<title>host</title><body style='margin:0'>") + GetParam().html).c_str());
    click();
    EXPECT_EQ(m_requests, 0);
    EXPECT_EQ(view()->title(), QStringLiteral("host"));
    EXPECT_EQ(view()->url().toString().toStdString(), "");
    EXPECT_NE(picture().pixelColor(20, 20), QColor(Qt::red)) << "the file was read";
}

INSTANTIATE_TEST_SUITE_P(
    WebBlock, HostilePageTest,
    testing::Values(
        HostileCase{{"Script"}, "<script>document.title='taken';new Image().src='{net}'</script>"},
        HostileCase{{"Handlers"},
                    "<img src='x' onerror=\"document.title='taken'\">"
                    "<p onclick=\"document.title='taken'\">click me here now</p>"},
        HostileCase{{"Image"}, "<img src='{net}'>"},
        HostileCase{{"ImageFile"}, "<img src='{file}'>"},
        HostileCase{{"Iframe"}, "<iframe src='{net}'></iframe>"},
        HostileCase{{"Refresh"}, "<meta http-equiv='refresh' content='0;url={net}'>"},
        HostileCase{{"Form"},
                    "<form action='{net}'><input type='submit' "
                    "style='width:200px;height:200px'></form>"},
        HostileCase{{"LinkToAFile"}, "<a href='{file}' style='display:block;height:99px'>x</a>"},
        HostileCase{{"Stylesheet"},
                    "<link rel='stylesheet' href='{net}'>"
                    "<style>@import '{net}'; @font-face {font-family:f;"
                    "src:url({net})} p {font-family:f}</style><p>x"},
        HostileCase{{"Prefetch"},
                    "<link rel='prefetch' href='{net}'><link rel='icon' "
                    "href='{net}'>"},
        HostileCase{{"PluginFile"}, "<object data='{file}'></object>"},
        HostileCase{{"Drawing"},
                    "<svg width='99' height='99'><image width='99' height='99' "
                    "xlink:href='{file}'/><image xlink:href='{net}'/></svg>"},
        HostileCase{{"ScriptAddress"},
                    "<iframe src=\"javascript:parent.document.title='taken'\">"
                    "</iframe><a style='display:block;height:99px' "
                    "href=\"javascript:document.title='taken'\">x</a>"}),
    rowName);

} // namespace
} // namespace Tova2
