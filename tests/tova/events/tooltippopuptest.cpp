#include "tova/events/tooltip.h"

#include "host/featureregistry.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QToolTip>
#include <QWidget>

namespace Tova2 {
namespace {

TEST(ToolTipPopupTest, ShowsOverInactiveWindowsOnlyWhileTheHookIsOn)
{
    QWidget behind, active;
    behind.setGeometry(100, 100, 200, 200);
    active.setGeometry(400, 100, 200, 200);
    behind.show();
    active.show();
    QApplication::processEvents();
    ASSERT_TRUE(active.isActiveWindow() && !behind.isActiveWindow());

    const auto tip = ToolTipPresenter::asPopup();
    const auto showsAt = [&](int x) {
        tip->show("tip", {x, 200});
        const bool isShown = QToolTip::text().contains(QLatin1String("tip"));
        tip->hide();
        // The toolkit lets it linger.
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->inherits("QTipLabel"))
                delete widget;
        }
        return isShown;
    };
    EXPECT_TRUE(showsAt(500));
    EXPECT_FALSE(showsAt(200));
    Host::setSwitch("InactiveWindowForToolTips", 1);
    EXPECT_TRUE(showsAt(200));
    Host::setSwitch("InactiveWindowForToolTips", 0);
}

} // namespace
} // namespace Tova2
