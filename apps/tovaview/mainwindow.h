#pragma once

#include "commandline.h"
#include "diagramloader.h"
#include "editor.h"
#include "recentfiles.h"
#include "statusline.h"
#include "windowactions.h"

#include <vemit/listener.h>

#include <QMainWindow>
#include <QUndoGroup>

namespace Tova2 {
class GLCanvas;
}

namespace TovaView {

class CanvasView;
class LoadingBar;
class MessageBar;

/// The program's window: one diagram in a canvas, the menus above it, the status bar below.
class MainWindow : public QMainWindow, public Vemit::Listener {
public:
    /// `options` say how diagrams are shown at first.
    explicit MainWindow(const Options& options);
    ~MainWindow() override;

    /// Begins to read a file, and shows its diagram when that is done; meanwhile, and when it goes
    /// wrong, which is said in the window, the one before stays.
    void open(const QString& file);
    bool isLoading() const { return m_loader.isLoading(); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WindowCommands commands();
    StatusLine::Handlers statusHandlers();
    void connectCanvas();
    void loaded(DiagramLoader::Outcome outcome);
    void showDocument(const QString& file, std::unique_ptr<DiagramDocument> document);
    void load(const QString& file);
    void cancelLoading();
    /// Runs what may fail, and says so in the window.
    bool attempt(const std::function<void()>& action);

    bool takeDrag(QDropEvent& event);
    void askForFile();
    void askForExport();
    void print();
    void chooseBackground();
    void setBackground(const std::optional<Vetra::Color>& color);
    void setDecorator(const QString& name);
    void useOwnConnectors(bool own);
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
    LoadingBar* m_loading;
    /// Last, so that no diagram comes when the rest is gone.
    DiagramLoader m_loader;
};

} // namespace TovaView
