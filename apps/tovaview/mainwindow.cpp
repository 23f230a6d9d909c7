#include "mainwindow.h"

#include "canvasview.h"
#include "colorname.h"
#include "demodiagram.h"
#include "filedialogs.h"
#include "fileerror.h"
#include "helptexts.h"
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
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QVBoxLayout>

namespace TovaView {
namespace {

constexpr double largestShare = 0.8; ///< of the screen, at first
constexpr QSize smallestWindow(480, 320), firstWindow(960, 640);
constexpr double viewMargin = 12;     ///< pixels around the diagram
constexpr int countingInterval = 100; ///< milliseconds
constexpr int noteDuration = 8000;    ///< milliseconds

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
    : m_options(options), m_canvas(new Tova2::GLCanvas("canvas")), m_messages(new MessageBar)
{
    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QWidget* canvas = Widgets::toQt(*m_canvas);
    layout->addWidget(canvas, 1);
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
    m_recent = std::make_unique<RecentFiles>(m_actions->recentMenu(),
                                             [this](const QString& file) { open(file); });
    m_crossingTimer.setInterval(countingInterval);
    QObject::connect(&m_crossingTimer, &QTimer::timeout, this, [this] { countCrossings(); });
    connectCanvas();
    updateTitle();
    resize(firstWindow);
    m_hasRestoredSize = restoreGeometry(QSettings().value(geometryKey()).toByteArray());
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
    commands.showGrid = [this](bool on) { m_canvas->setGridVisible(on); };
    commands.fullScreen = [this](bool on) {
        setWindowState(windowState().setFlag(Qt::WindowFullScreen, on));
    };
    commands.setDecorator = [this](const QString& name) { setDecorator(name); };
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

bool MainWindow::open(const QString& file)
{
    QStringList notes;
    const bool isOpen = attempt([&] {
        const WaitCursor wait;
        showDocument(file, DiagramDocument::open(file, notes, m_options.background));
    });
    if (!isDemoDiagram(file))
        isOpen ? m_recent->add(file) : m_recent->remove(file);
    if (!notes.isEmpty())
        statusBar()->showMessage(oneLine(notes.first()), noteDuration);
    return isOpen;
}

void MainWindow::showDocument(const QString& file, std::unique_ptr<DiagramDocument> document)
{
    document->scene().setLODStrategyKey("tova2::" + m_options.detail.toStdString());
    m_editor.reset();
    const Vetra::Color accent =
        Vetra::Color::fromPacked(palette().color(QPalette::Highlight).rgba());
    m_editor = std::make_unique<Editor>(*m_canvas, std::move(document), accent);
    m_file = file;
    m_history.addStack(&m_editor->history());
    m_history.setActiveStack(&m_editor->history());
    m_editor->changed().connect(this, [this] { crossingsChanged(); });
    QObject::connect(&m_editor->history(), &QUndoStack::cleanChanged, this,
                     [this](bool clean) { setWindowModified(!clean); });
    setDecorator(m_options.decorator);
    m_actions->setDiagramShown(true);
    m_status->setEnabled(true);
    updateTitle();
    sizeFor(m_editor->document().shown().area);
    m_view->showAll();
}

void MainWindow::updateTitle()
{
    setWindowTitle(m_editor ? QStringLiteral("%1[*] – tovaview").arg(nameOf(m_file))
                            : QStringLiteral("tovaview"));
    setWindowModified(false);
}

/// A number that is out of date for a moment is less of a disturbance than one that comes and goes.
void MainWindow::countCrossings()
{
    if (m_editor && !m_editor->document().scene().pathIntersectionsAllFound())
        return;
    m_crossingTimer.stop();
    if (m_editor)
        m_status->showCrossings(m_editor->document().scene().pathIntersectionsCount());
}

void MainWindow::crossingsChanged()
{
    if (!m_crossingTimer.isActive())
        m_crossingTimer.start();
}

void MainWindow::setDecorator(const QString& name)
{
    m_options.decorator = name;
    if (!m_editor)
        return;
    m_editor->document().scene().usePathIntersectionsDecorator(name.toStdString());
    crossingsChanged();
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

/// As it was left the last time; the very first time the diagram says how large.
void MainWindow::sizeFor(const Rect& area)
{
    if (isVisible() || m_hasRestoredSize)
        return;
    const QSize screen = QGuiApplication::primaryScreen()->availableSize() * largestShare;
    const QSize chrome(0, menuBar()->sizeHint().height() + statusBar()->sizeHint().height());
    resize((QSizeF(area.width, area.height).toSize() + chrome)
               .expandedTo(smallestWindow)
               .boundedTo(screen));
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
