#include "mainwindow.h"

#include "canvasview.h"
#include "colorname.h"
#include "demodiagram.h"
#include "filedialogs.h"
#include "fileerror.h"
#include "helptexts.h"
#include "loadingbar.h"
#include "messagebar.h"

#include <tova/widget/glcanvas.h>
#include <vetra/qt.h>
#include <widgets/qt.h>

#include <QCloseEvent>
#include <QColorDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QVBoxLayout>

namespace TovaView {
namespace {

constexpr QSize firstWindow(960, 640);
constexpr double viewMargin = 12;  ///< pixels around the diagram
constexpr int noteDuration = 8000; ///< milliseconds

QString geometryKey()
{
    return QStringLiteral("window/geometry");
}

QString nameOf(const QString& file)
{
    return QFileInfo(file).fileName();
}

/// The first file of a drop; empty when it holds none.
QString droppedFile(const QMimeData& data)
{
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

struct WaitCursor {
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

} // namespace

MainWindow::MainWindow(const Options& options)
    : m_options(options)
    , m_canvas(new Tova2::GLCanvas("canvas"))
    , m_messages(new MessageBar)
    , m_loading(new LoadingBar({[this] { return m_loader.stage(); }, [this] { m_loader.hurry(); },
                                [this] { cancelLoading(); }}))
    , m_loader([this](DiagramLoader::Outcome outcome) { loaded(std::move(outcome)); })
{
    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QWidget* canvas = Widgets::toQt(*m_canvas);
    layout->addWidget(canvas, 1);
    layout->addWidget(m_loading);
    layout->addWidget(m_messages);
    setCentralWidget(centre);
    setAcceptDrops(true);
    m_canvas->setMargins({viewMargin, viewMargin, viewMargin, viewMargin});
    canvas->installEventFilter(this);
    canvas->setFocus();

    m_view = std::make_unique<CanvasView>(*m_canvas);
    m_status = std::make_unique<StatusLine>(*statusBar(), statusHandlers());
    m_status->setEnabled(false);
    m_actions = std::make_unique<WindowActions>(*this, m_history, commands());
    m_actions->showDecorator(options.decorator);
    m_actions->showConnectors(options.ownConnectors);
    m_recent = std::make_unique<RecentFiles>(m_actions->recentMenu(),
                                             [this](const QString& file) { open(file); });
    connectCanvas();
    updateTitle();
    resize(firstWindow);
    restoreGeometry(QSettings().value(geometryKey()).toByteArray());
}

MainWindow::~MainWindow()
{
    m_editor.reset();
    m_view.reset();
    m_canvas->destroy();
}

void MainWindow::connectCanvas()
{
    using Tova2::GLCanvasEmitters;
    m_canvas->connectTo(&GLCanvasEmitters::scaleChange, this,
                        [this](double scale, Tova2::ZoomReason) { m_status->showScale(scale); });
    m_canvas->connectTo(&GLCanvasEmitters::pointerMove, this,
                        [this](const Vetra::GLPoint<int>& at) {
                            if (m_editor)
                                m_status->showPointer(
                                    m_canvas->viewPointToScenePoint({double(at.x), double(at.y)}));
                        });
}

WindowCommands MainWindow::commands()
{
    WindowCommands commands;
    commands.open = [this] { askForFile(); };
    commands.exportPicture = [this] { askForExport(); };
    commands.print = [this] { print(); };
    commands.quit = [this] { close(); };
    commands.selectAll = [this] { m_editor->selectAll(); };
    commands.selectNone = [this] { m_editor->selectNone(); };
    commands.selectNext = [this] { m_editor->selectNext(1); };
    commands.selectPrevious = [this] { m_editor->selectNext(-1); };
    commands.zoomIn = [this] { m_view->step(Tova2::ZoomDirection::In); };
    commands.zoomOut = [this] { m_view->step(Tova2::ZoomDirection::Out); };
    commands.actualSize = [this] { m_view->actualSize(); };
    commands.fit = [this] { m_view->fit(); };
    commands.zoomToSelection = [this] { m_editor->zoomToSelection(); };
    commands.showGrid = [this](bool on) { m_canvas->setGridVisible(on); };
    commands.fullScreen = [this](bool on) {
        setWindowState(windowState().setFlag(Qt::WindowFullScreen, on));
    };
    commands.setDecorator = [this](const QString& name) { setDecorator(name); };
    commands.useOwnConnectors = [this](bool own) { useOwnConnectors(own); };
    commands.setBackground = [this](const QString& name) {
        setBackground(name.isEmpty() ? std::nullopt : findColor(name));
    };
    commands.chooseBackground = [this] { chooseBackground(); };
    commands.showKeys = [this] { showKeys(*this); };
    commands.showAbout = [this] { showAbout(*this); };
    return commands;
}

StatusLine::Handlers MainWindow::statusHandlers()
{
    const auto step = [this](Tova2::ZoomDirection direction) {
        return [this, direction] { m_view->step(direction); };
    };
    return {{[this](double scale) { m_view->zoomTo(scale); }, [this] { m_view->fit(); },
             [this] { m_canvas->setFocus(); }},
            step(Tova2::ZoomDirection::In),
            step(Tova2::ZoomDirection::Out)};
}

bool MainWindow::attempt(const std::function<void()>& action)
{
    try {
        action();
        m_messages->hide();
        return true;
    } catch (const FileError& error) {
        m_messages->say(error.message());
    } catch (const std::bad_alloc&) {
        m_messages->say(QStringLiteral("There is not enough memory for that."));
    } catch (const std::exception& error) {
        m_messages->say(oneLine(QString::fromLocal8Bit(error.what())));
    }
    return false;
}

void MainWindow::open(const QString& file)
{
    m_messages->hide();
    load(file);
}

void MainWindow::load(const QString& file)
{
    m_loader.load(file, m_options.ownConnectors);
    m_loading->begin(nameOf(file));
}

void MainWindow::cancelLoading()
{
    m_loader.cancel();
    m_loading->end();
}

void MainWindow::loaded(DiagramLoader::Outcome outcome)
{
    m_loading->end();
    const bool isOpen =
        outcome.diagram && attempt([&] {
            const WaitCursor wait;
            showDocument(outcome.file, std::make_unique<DiagramDocument>(std::move(outcome.diagram),
                                                                         m_options.background));
        });
    if (!outcome.error.isEmpty())
        m_messages->say(outcome.error);
    if (!isDemoDiagram(outcome.file))
        isOpen ? m_recent->add(outcome.file) : m_recent->remove(outcome.file);
    if (!outcome.notes.isEmpty())
        statusBar()->showMessage(oneLine(outcome.notes.first()), noteDuration);
}

/// The same file, with other connectors, keeps the moves of its blocks and what is seen of it.
void MainWindow::showDocument(const QString& file, std::unique_ptr<DiagramDocument> document)
{
    const bool isSame = m_editor && file == m_file;
    if (isSame)
        document->takeMovesOf(m_editor->document());
    document->scene().setLODStrategyKey("tova2::" + m_options.detail.toStdString());
    const Vetra::GLRect<double> seen = m_canvas->getSceneRectInView();
    m_editor.reset();
    const Vetra::Color accent =
        Vetra::Color::fromPacked(palette().color(QPalette::Highlight).rgba());
    m_editor = std::make_unique<Editor>(*m_canvas, std::move(document), accent);
    m_file = file;
    m_history.addStack(&m_editor->history());
    m_history.setActiveStack(&m_editor->history());
    setDecorator(m_options.decorator);
    m_actions->setDiagramShown(true);
    m_status->setEnabled(true);
    m_status->showSize(m_editor->document().counts());
    updateTitle();
    if (isSame)
        m_view->lookAt(seen);
    else
        m_view->showAll();
}

void MainWindow::updateTitle()
{
    setWindowTitle(m_editor ? QStringLiteral("%1 – tovaview").arg(nameOf(m_file))
                            : QStringLiteral("tovaview"));
}

void MainWindow::useOwnConnectors(bool own)
{
    if (own == m_options.ownConnectors)
        return;
    m_options.ownConnectors = own;
    if (m_editor)
        load(m_file);
}

void MainWindow::setDecorator(const QString& name)
{
    m_options.decorator = name;
    if (!m_editor)
        return;
    m_editor->document().scene().usePathIntersectionsDecorator(name.toStdString());
}

void MainWindow::setBackground(const std::optional<Vetra::Color>& color)
{
    m_options.background = color;
    if (m_editor)
        attempt([&] { m_editor->setGround(color); });
}

void MainWindow::chooseBackground()
{
    const Vetra::Color now = m_options.background.value_or(Vetra::Color::fromPacked(0xffffffff));
    const QColor chosen =
        QColorDialog::getColor(QColor::fromRgba(now.packed()), this, QStringLiteral("Background"));
    if (chosen.isValid())
        setBackground(Vetra::Color::fromPacked(chosen.rgba()));
}

void MainWindow::askForFile()
{
    const QString file = askForDiagram(*this, m_file);
    if (!file.isEmpty())
        open(file);
}

void MainWindow::askForExport()
{
    const QString target = askForTarget(*this, m_file);
    if (target.isEmpty())
        return;
    m_editor->cancelTools();
    if (attempt([&] { exportTo(m_editor->document().shown(), target); }))
        statusBar()->showMessage(QStringLiteral("Exported to %1").arg(oneLine(target)),
                                 noteDuration);
}

void MainWindow::print()
{
    m_editor->cancelTools();
    attempt([&] { askAndPrint(*this, m_editor->document().shown(), nameOf(m_file)); });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QSettings().setValue(geometryKey(), saveGeometry());
    QMainWindow::closeEvent(event);
}

/// Files dropped on the canvas are for the window, whatever tools the scene has.
bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Leave:
        m_status->showPointer({});
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        if (takeDrag(static_cast<QDropEvent&>(*event)))
            return true;
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    takeDrag(*event);
}

void MainWindow::dropEvent(QDropEvent* event)
{
    takeDrag(*event);
}

/// False when it brings no file.
bool MainWindow::takeDrag(QDropEvent& event)
{
    const QString file = droppedFile(*event.mimeData());
    if (file.isEmpty())
        return false;
    event.acceptProposedAction();
    // Not at once: whoever drags it waits for the end of the drop.
    if (event.type() == QEvent::Drop)
        QTimer::singleShot(0, this, [this, file] { open(file); });
    return true;
}

} // namespace TovaView
