#include "windowactions.h"

#include <vetra/errorreporter.h>

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QUndoGroup>

namespace TovaView {
namespace {

struct Choice {
    const char* text;
    const char* value;
};

constexpr Choice decorators[] = {{"&Hop", "hop"},
                                 {"&Pin", "pin"},
                                 {"&Graded Pin", "grad_pin"},
                                 {"&Light Pin", "light_pin"},
                                 {"&None", "none"}};
constexpr Choice connectors[] = {{"&Right-Angled", ""}, {"As in the &File", "own"}};
constexpr Choice backgrounds[] = {
    {"&Diagram's Own", ""}, {"&White", "white"}, {"&Paper", "#fbf7ee"}, {"&Light Grey", "#eef0f2"}};

QMenu& addMenu(QMainWindow& window, const char* title)
{
    return *window.menuBar()->addMenu(QString::fromLatin1(title));
}

QAction* addChoice(QMenu& menu, QActionGroup& group, const Choice& choice)
{
    QAction* action = group.addAction(QString::fromLatin1(choice.text));
    action->setCheckable(true);
    action->setData(QString::fromLatin1(choice.value));
    menu.addAction(action);
    return action;
}

} // namespace

WindowActions::WindowActions(QMainWindow& window, QUndoGroup& history, WindowCommands commands)
    : m_commands(std::move(commands)), m_needDiagram(new QActionGroup(&window))
{
    m_needDiagram->setExclusive(false);
    addFileMenu(window);
    addEditMenu(window, history);
    addViewMenu(window);
    addHelpMenu(window);
    setDiagramShown(false);
}

void WindowActions::setDiagramShown(bool shown)
{
    m_needDiagram->setEnabled(shown);
}

void WindowActions::showDecorator(const QString& name)
{
    for (QAction* action : m_decorators->actions())
        action->setChecked(action->data() == name);
}

void WindowActions::showConnectors(bool own)
{
    m_connectors->actions()[own ? 1 : 0]->setChecked(true);
}

QAction* WindowActions::add(QMenu& menu, const char* text, const char* keys,
                            std::function<void()> command)
{
    QAction* action = menu.addAction(QString::fromUtf8(text));
    action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(keys)));
    QObject::connect(action, &QAction::triggered, action, [command] {
        // Nothing may be thrown through the toolkit, and a lack of memory can come from anywhere.
        try {
            command();
        } catch (...) {
            Vetra::reportError(std::current_exception(), "Menu");
        }
    });
    return action;
}

QAction* WindowActions::addDiagramAction(QMenu& menu, const char* text, const char* keys,
                                         std::function<void()> command)
{
    QAction* action = add(menu, text, keys, std::move(command));
    m_needDiagram->addAction(action);
    return action;
}

void WindowActions::addFileMenu(QMainWindow& window)
{
    QMenu& menu = addMenu(window, "&File");
    add(menu, "&Open…", "Ctrl+O", m_commands.open);
    m_recent = menu.addMenu(QStringLiteral("Open &Recent"));
    menu.addSeparator();
    addDiagramAction(menu, "&Export…", "Ctrl+E", m_commands.exportPicture);
    addDiagramAction(menu, "&Print…", "Ctrl+P", m_commands.print);
    menu.addSeparator();
    add(menu, "&Quit", "Ctrl+Q", m_commands.quit)->setMenuRole(QAction::QuitRole);
}

void WindowActions::addEditMenu(QMainWindow& window, QUndoGroup& history)
{
    QMenu& menu = addMenu(window, "&Edit");
    QAction* undo = history.createUndoAction(&window, QStringLiteral("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = history.createRedoAction(&window, QStringLiteral("&Redo"));
    redo->setShortcuts(QKeySequence::listFromString(QStringLiteral("Ctrl+Shift+Z; Ctrl+Y")));
    menu.addActions({undo, redo});
    menu.addSeparator();
    addDiagramAction(menu, "Select &All", "Ctrl+A", m_commands.selectAll);
    addDiagramAction(menu, "Select &None", "Ctrl+Shift+A", m_commands.selectNone);
    addDiagramAction(menu, "Select Ne&xt", "N", m_commands.selectNext);
    addDiagramAction(menu, "Select &Previous", "Shift+N", m_commands.selectPrevious);
}

void WindowActions::addViewMenu(QMainWindow& window)
{
    QMenu& menu = addMenu(window, "&View");
    addDiagramAction(menu, "Zoom &In", "Ctrl++; Ctrl+=", m_commands.zoomIn);
    addDiagramAction(menu, "Zoom &Out", "Ctrl+-", m_commands.zoomOut);
    addDiagramAction(menu, "&Actual Size", "Ctrl+0", m_commands.actualSize);
    addDiagramAction(menu, "&Fit", "F", m_commands.fit);
    addDiagramAction(menu, "Zoom to &Selection", "Shift+F", m_commands.zoomToSelection);
    menu.addSeparator();
    addConnectors(*menu.addMenu(QStringLiteral("Con&nectors")));
    addDecorators(*menu.addMenu(QStringLiteral("&Crossings")));
    addBackgrounds(*menu.addMenu(QStringLiteral("&Background")));
    const auto addSwitch = [&](const char* text, const char* keys,
                               const std::function<void(bool)>& command) {
        QAction* action = menu.addAction(QString::fromLatin1(text));
        action->setCheckable(true);
        action->setShortcut(QKeySequence(QString::fromLatin1(keys)));
        QObject::connect(action, &QAction::toggled, action, command);
        return action;
    };
    addSwitch("&Grid", "G", m_commands.showGrid);
    menu.addSeparator();
    addSwitch("F&ull Screen", "F11", m_commands.fullScreen);
}

void WindowActions::addConnectors(QMenu& menu)
{
    m_connectors = new QActionGroup(&menu);
    for (const Choice& choice : connectors)
        addChoice(menu, *m_connectors, choice);
    QObject::connect(m_connectors, &QActionGroup::triggered, &menu,
                     [command = m_commands.useOwnConnectors](QAction* action) {
                         command(!action->data().toString().isEmpty());
                     });
}

void WindowActions::addDecorators(QMenu& menu)
{
    m_decorators = new QActionGroup(&menu);
    for (const Choice& choice : decorators)
        addChoice(menu, *m_decorators, choice);
    QObject::connect(m_decorators, &QActionGroup::triggered, &menu,
                     [command = m_commands.setDecorator](QAction* action) {
                         command(action->data().toString());
                     });
}

void WindowActions::addBackgrounds(QMenu& menu)
{
    auto* group = new QActionGroup(&menu);
    for (const Choice& choice : backgrounds)
        addChoice(menu, *group, choice);
    group->actions().first()->setChecked(true);
    menu.addSeparator();
    QAction* other = addChoice(menu, *group, {"&Other…", ""});
    other->setText(QStringLiteral("&Other…"));
    QObject::connect(group, &QActionGroup::triggered, &menu,
                     [commands = m_commands, other](QAction* action) {
                         if (action == other)
                             commands.chooseBackground();
                         else
                             commands.setBackground(action->data().toString());
                     });
}

void WindowActions::addHelpMenu(QMainWindow& window)
{
    QMenu& menu = addMenu(window, "&Help");
    add(menu, "&Keys and Mouse", "F1", m_commands.showKeys);
    add(menu, "&About tovaview", "", m_commands.showAbout)->setMenuRole(QAction::AboutRole);
}

} // namespace TovaView
