#include "tova/events/tooltip.h"

#include "events/testinghooks.h"

#include <QApplication>
#include <QToolTip>

namespace Tova2 {

namespace {

/// More than a screen shows; a tip is laid out in one go.
constexpr int kMaxCharacters = 4096;

class ToolTipPopup final : public ToolTipPresenter {
public:
    ~ToolTipPopup() override { ToolTipPopup::hide(); }

    void show(const std::string& text, const Vetra::GLPoint<int>& globalPos) override
    {
        if (!hasWidgets() || !isAllowedAt({globalPos.x, globalPos.y}))
            return;
        // The toolkit guesses whether a text is markup, and markup may name files: say it is, and
        // leave nothing in it that could be.
        const QString plain = QString::fromStdString(text).left(kMaxCharacters).toHtmlEscaped();
        const QString markup = QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(plain);
        QToolTip::showText({globalPos.x, globalPos.y}, markup);
        m_isShown = true;
    }

    void hide() override
    {
        if (m_isShown && hasWidgets())
            QToolTip::hideText();
        m_isShown = false;
    }

private:
    /// As for the toolkit's own widgets, unless a test cannot have the active window.
    static bool isAllowedAt(const QPoint& pos)
    {
        const QWidget* const widget = QApplication::widgetAt(pos);
        return !widget || widget->isActiveWindow() ||
               widget->window()->testAttribute(Qt::WA_AlwaysShowToolTips) ||
               TestingHooks::inactiveWindowForToolTips().value() != 0;
    }
    static bool hasWidgets() { return qobject_cast<QApplication*>(qApp) != nullptr; }

    bool m_isShown = false;
};

} // namespace

Vetra::StringID toolTipTag()
{
    static const Vetra::StringID tag("ToolTip");
    return tag;
}

ToolTipPresenter::~ToolTipPresenter() = default;

std::unique_ptr<ToolTipPresenter> ToolTipPresenter::asPopup()
{
    return std::make_unique<ToolTipPopup>();
}

} // namespace Tova2
