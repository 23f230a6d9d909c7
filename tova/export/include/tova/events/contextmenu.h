#pragma once

#include "tova/nodes/node.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/glpoint.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Tova2 {

class EventCanvas;

/// One line of a context menu, or a menu below it.
struct ContextMenuAction {
    std::u16string text; ///< a character behind '&' is its key
    std::function<void()> trigger;
    bool isEnabled = true;
    bool isCheckable = false;
    bool isChecked = false;
    bool isSeparator = false;                 ///< all else is ignored then
    std::vector<ContextMenuAction> submenu{}; ///< when there is one, `trigger` is ignored
};

/// What the user asks a menu for.
struct ContextMenuRequest {
    /// Where the pointer is; by keyboard the middle of the node that is meant.
    Vetra::GLPoint<double> scenePos;
    Vetra::GLPoint<int> globalPos; ///< on the screen, where the menu will open
    bool isByKeyboard = false;
    /// The topmost at the position; by keyboard, wherever the pointer is, the one that is meant.
    /// Either may be empty.
    Node node;
    EventCanvas* canvas = nullptr;
};

/// Puts a menu on the screen.
class TOVA_EXPORT ContextMenuPresenter {
public:
    virtual ~ContextMenuPresenter();
    /// Returns at once; an action is triggered later, from the event loop. Replaces a menu that is
    /// open.
    virtual void show(std::vector<ContextMenuAction> actions,
                      const Vetra::GLPoint<int>& globalPos) = 0;
    virtual void hide() = 0;

    /// As the toolkit's menu. What an action throws is reported (Vetra::setErrorReporter).
    static std::unique_ptr<ContextMenuPresenter> asPopup();

    TOVA_BASE_TYPE("Tova2.ContextMenuPresenter");
};

} // namespace Tova2
