#pragma once

#include "commandline.h"
#include "editor.h"
#include "recentfiles.h"
#include "statusline.h"
#include "windowactions.h"

#include <vemit/listener.h>

#include <QMainWindow>
#include <QTimer>
#include <QUndoGroup>

namespace Tova2 {
class GLCanvas;
}

namespace TovaView {

class CanvasView;
class MessageBar;

/// The program's window: one diagram in a canvas, the menus above it, the status bar below.
class MainWindow : public QMainWindow, public Vemit::Listener {
public:
    /// `options` say how diagrams are shown at first.
    explicit MainWindow(const Options& options);
    ~MainWindow() override;

    /// Shows the diagram of a file. What goes wrong is said in the window, which then shows what it
    /// did before.
    bool open(const QString& file);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WindowCommands commands();
    StatusLine::Handlers statusHandlers();
    void connectCanvas();
    void showDocument(const QString& file, std::unique_ptr<DiagramDocument> document);
    void sizeFor(const Rect& area);
    /// Runs what may fail, and says so in the window.
    bool attempt(const std::function<void()>& action);

    bool takeDrag(QDropEvent& event);
    void askForFile();
    void askForExport();
    void print();
    void chooseBackground();
    void setBackground(const std::optional<Vetra::Color>& color);
    void setDecorator(const QString& name);
    void countCrossings();
    void crossingsChanged();
    void updateTitle();

    Options m_options;
    QUndoGroup m_history;
    QString m_file;
    Tova2::GLCanvas* m_canvas;
    MessageBar* m_messages;
    std::unique_ptr<CanvasView> m_view;
    std::unique_ptr<Editor> m_editor;
    std::unique_ptr<StatusLine> m_status;
    std::unique_ptr<WindowActions> m_actions;
    std::unique_ptr<RecentFiles> m_recent;
    bool m_hasRestoredSize = false;
    QTimer m_crossingTimer; ///< runs while crossings are being counted
};

} // namespace TovaView
