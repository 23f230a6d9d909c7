#pragma once

#include "tova/events/contextmenu.h"
#include "tova/events/tool.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// Opens a menu where the user asks for one, with the actions that the host has for the place.
/// Without a provider, or where it has none, the event goes on to the tools below.
class TOVA_EXPORT ContextMenuTool : public Tool {
public:
    using NodeProvider = std::function<Node()>;
    using ActionProvider = std::function<std::vector<ContextMenuAction>(const ContextMenuRequest&)>;

    /// Shows menus through `presenter`; null stands for the toolkit's popup.
    explicit ContextMenuTool(std::unique_ptr<ContextMenuPresenter> presenter = nullptr);
    ~ContextMenuTool() override;
    static Vetra::StringID staticGetDefaultRole();

    void setActionProvider(ActionProvider provider);
    /// Says which node a menu asked for by key is for, and opens over, such as the one that is
    /// selected. Without a provider, or when it has none, that is the scene's focused node; without
    /// that either, the menu is for no node and opens in the middle of the canvas.
    void setKeyboardNodeProvider(NodeProvider provider);

    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    EAutoScrollType autoScrollTypeDuringDrag() override { return EAutoScrollType::None; }
    /// Closes the menu.
    void cancel(ECancelReason reason, const Tool* cause) override;
    void onRemoveFromStack() override;
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }

    void handleContextMenuEvent(ContextMenuEvent& event) override;

private:
    ContextMenuRequest requestOf(const ContextMenuEvent& event);
    void aimByKeyboard(ContextMenuRequest& request, const ContextMenuEvent& event);

    std::unique_ptr<ContextMenuPresenter> m_presenter;
    ActionProvider m_provider;
    NodeProvider m_keyboardNode;

    TOVA_DERIVED_TYPE("Tova2.ContextMenuTool", Tool);
};

} // namespace Tova2
