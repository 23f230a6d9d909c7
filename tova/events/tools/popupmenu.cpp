#include "tova/events/contextmenu.h"
#include "vetra/errorreporter.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>

#include <utility>

namespace Tova2 {

namespace {

void trigger(const std::function<void()>& action) noexcept
{
    try {
        action();
    } catch (...) {
        Vetra::reportError(std::current_exception(), "Menu action");
    }
}

void fill(QMenu& menu, std::vector<ContextMenuAction>& actions);

void add(QMenu& menu, ContextMenuAction& action)
{
    if (action.isSeparator) {
        menu.addSeparator();
        return;
    }
    const QString text = QString::fromStdU16String(action.text);
    if (!action.submenu.empty()) {
        QMenu* below = menu.addMenu(text);
        below->setEnabled(action.isEnabled);
        return fill(*below, action.submenu);
    }
    QAction* line = menu.addAction(text);
    line->setEnabled(action.isEnabled);
    line->setCheckable(action.isCheckable);
    line->setChecked(action.isChecked);
    if (action.trigger) {
        // By value in the lambda: the action may close the menu that holds it.
        QObject::connect(line, &QAction::triggered, line,
                         [call = std::move(action.trigger)] { trigger(std::function(call)); });
    }
}

void fill(QMenu& menu, std::vector<ContextMenuAction>& actions)
{
    for (ContextMenuAction& action : actions)
        add(menu, action);
}

class PopupMenu final : public ContextMenuPresenter {
public:
    ~PopupMenu() override { PopupMenu::hide(); }

    void show(std::vector<ContextMenuAction> actions, const Vetra::GLPoint<int>& globalPos) override
    {
        hide();
        if (!qobject_cast<QApplication*>(qApp)) // no widgets without one
            return;
        m_menu = new QMenu;
        m_menu->setAttribute(Qt::WA_DeleteOnClose);
        fill(*m_menu, actions);
        m_menu->popup({globalPos.x, globalPos.y});
    }

    void hide() override
    {
        // Later: it may be the menu whose action is running.
        if (m_menu) {
            m_menu->hide();
            m_menu->deleteLater();
        }
        m_menu = nullptr;
    }

private:
    QPointer<QMenu> m_menu;
};

} // namespace

ContextMenuPresenter::~ContextMenuPresenter() = default;

std::unique_ptr<ContextMenuPresenter> ContextMenuPresenter::asPopup()
{
    return std::make_unique<PopupMenu>();
}

} // namespace Tova2
