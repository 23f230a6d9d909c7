#include "tova/events/eventhandler.h"
#include "tova/events/mouseevent.h"

#include <gtest/gtest.h>

namespace {

using namespace Tova2;

TEST(EventTest, ConsumedCopyStaysConsumedUnderTheSameNumber)
{
    MouseEvent event(EventType::MousePressEvent, {});
    event.consume();
    const MouseEvent copy(event);
    EXPECT_TRUE(copy.isConsumed());
    EXPECT_EQ(copy.serialNumber(), event.serialNumber());
    EXPECT_EQ(MouseEvent(EventType::MousePressEvent, {}).serialNumber(), event.serialNumber() + 1);
}

} // namespace
