#pragma once

#include <functional>

class QAction;
class QActionGroup;
class QMainWindow;
class QMenu;
class QUndoGroup;
class QString;

namespace TovaView {

/// What the menus can ask of the window.
struct WindowCommands {
    std::function<void()> open, exportPicture, print, quit;
    std::function<void()> selectAll, selectNone, selectNext, selectPrevious;
    std::function<void()> zoomIn, zoomOut, actualSize, fit, zoomToSelection;
    std::function<void(bool)> showGrid, fullScreen;
    std::function<void(bool)> useOwnConnectors;        ///< as the file has them
    std::function<void(const QString&)> setDecorator;  ///< "none", "hop" and so on
    std::function<void(const QString&)> setBackground; ///< a colour; empty for the diagram's own
    std::function<void()> chooseBackground;
    std::function<void()> showKeys, showAbout;
};

/// The window's menus. Actions belong to the window.
class WindowActions {
public:
    WindowActions(QMainWindow& window, QUndoGroup& history, WindowCommands commands);

    QMenu& recentMenu() const { return *m_recent; }
    /// Those that need a diagram.
    void setDiagramShown(bool shown);
    void showDecorator(const QString& name);
    void showConnectors(bool own);

private:
    QAction* add(QMenu& menu, const char* text, const char* keys, std::function<void()> command);
    QAction* addDiagramAction(QMenu& menu, const char* text, const char* keys,
                              std::function<void()> command);
    void addFileMenu(QMainWindow& window);
    void addEditMenu(QMainWindow& window, QUndoGroup& history);
    void addViewMenu(QMainWindow& window);
    void addConnectors(QMenu& menu);
    void addDecorators(QMenu& menu);
    void addBackgrounds(QMenu& menu);
    void addHelpMenu(QMainWindow& window);

    WindowCommands m_commands;
    QMenu* m_recent = nullptr;
    QActionGroup* m_needDiagram;
    QActionGroup* m_decorators = nullptr;
    QActionGroup* m_connectors = nullptr;
};

} // namespace TovaView
