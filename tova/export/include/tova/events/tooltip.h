#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/glpoint.h"
#include "vetra/stringid.h"

#include <memory>
#include <string>

namespace Tova2 {

/// Tag "ToolTip": its value, a std::string in UTF-8, is the tip of the node and of its descendants
/// that have none of their own.
TOVA_EXPORT Vetra::StringID toolTipTag();

/// Puts a tip on the screen.
class TOVA_EXPORT ToolTipPresenter {
public:
    virtual ~ToolTipPresenter();
    /// `globalPos` is the pointer's place on the screen. The text is plain, whatever is in it.
    virtual void show(const std::string& text, const Vetra::GLPoint<int>& globalPos) = 0;
    virtual void hide() = 0;

    /// As the toolkit's tool tip, which shows over active windows; over others as well while the
    /// testing hook "InactiveWindowForToolTips" is on.
    static std::unique_ptr<ToolTipPresenter> asPopup();

    TOVA_BASE_TYPE("Tova2.ToolTipPresenter");
};

} // namespace Tova2
