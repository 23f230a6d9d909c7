#include "vetra/eventsource.h"
#include "vetra/inputnames.h"
#include "vetra/qtevents.h"
#include "vetra/saturate.h"

#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QMimeData>

#include <array>
#include <limits>

namespace {

using namespace Vetra;

constexpr double inf = std::numeric_limits<double>::infinity();

struct SaturationCase {
    const char* name;
    double value;
    int expected;
};
class SaturatedIntTest : public testing::TestWithParam<SaturationCase> {};

TEST_P(SaturatedIntTest, CutsOffTowardZeroWithinAnInt)
{
    EXPECT_EQ(saturatedInt(GetParam().value), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Input, SaturatedIntTest,
    testing::Values(SaturationCase{"Positive", 2.9, 2}, SaturationCase{"Negative", -2.9, -2},
                    SaturationCase{"LargestExactly", 2147483647.0, 2147483647},
                    SaturationCase{"PastLargest", 2147483648.0, 2147483647},
                    SaturationCase{"PastLowest", -2147483649.5, -2147483647 - 1},
                    SaturationCase{"Infinite", inf, 2147483647},
                    SaturationCase{"MinusInfinite", -inf, -2147483647 - 1},
                    SaturationCase{"NotANumber", std::nan(""), 0}),
    [](const auto& row) { return row.param.name; });

struct NameCase {
    const char* name;
    std::string text;
    std::string expected;
};
class InputNamesTest : public testing::TestWithParam<NameCase> {};

TEST_P(InputNamesTest, LogTextIsToTheLetter)
{
    EXPECT_EQ(GetParam().text, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Input, InputNamesTest,
    testing::Values(
        NameCase{"Escape", nameOf(Key::Escape), "Key_Escape"},
        NameCase{"SpaceNotItsAlias", nameOf(Key::Space), "Key_Space"},
        NameCase{"Letter", nameOf(Key::A), "Key_A"}, NameCase{"F35", nameOf(Key::F35), "Key_F35"},
        NameCase{"DeadHorn", nameOf(static_cast<Key>(Qt::Key_Dead_Horn)), "Key_Dead_Horn"},
        NameCase{"MediaLast", nameOf(static_cast<Key>(Qt::Key_MediaLast)), "Key_MediaLast"},
        NameCase{"Flip", nameOf(static_cast<Key>(Qt::Key_Flip)), "Key_Flip"},
        NameCase{"KeyWithoutName", nameOf(static_cast<Key>(0x1f600)), "Key_unknown"},
        NameCase{"TwoButtons", nameOf(static_cast<MouseButton>(3)), "Invalid button!"},
        NameCase{"MiddleButton", nameOf(fromQt(Qt::MiddleButton)), "MidButton"},
        NameCase{"CanceledGesture", nameOf(fromQt(Qt::GestureCanceled)), "GestureCanceled"},
        NameCase{"NoSuchGesture", nameOf(static_cast<GestureState>(5)), "Invalid gesture state!"},
        NameCase{"BacktabHasNoName", nameOf(fromQt(Qt::BacktabFocusReason)), "invalid reason!"},
        NameCase{"PopupIsOther", nameOf(fromQt(Qt::PopupFocusReason)), "OtherReason"},
        NameCase{"NoModifier", namesOf({}), "()"},
        NameCase{"ModifiersInOrder", namesOf(fromQt(Qt::KeypadModifier | Qt::ShiftModifier)),
                 "(SHIFT KEYPAD )"},
        NameCase{"Point", textOf({0.1, -2}), "(0.1, -2)"},
        NameCase{"LongestNumber", textOf(-std::numeric_limits<double>::denorm_min()), "-5e-324"}),
    [](const auto& row) { return row.param.name; });

TEST(InputEventsTest, ToolkitEventsComeBackAsTheyWent)
{
    struct Widget : EventSource {
    } widget;
    const QMouseEvent press(QEvent::MouseButtonPress, QPointF(3, -4), QPointF(103, 96),
                            Qt::LeftButton, Qt::LeftButton | Qt::RightButton, Qt::AltModifier);
    const GLMouseEvent2 mouse = fromQt(press, &widget);
    EXPECT_EQ(mouse.widget, &widget);
    EXPECT_EQ(fromQt(toQt(mouse, press.type()), &widget), mouse);
    EXPECT_EQ(mouse.globalPosition, (GLPoint<int>{103, 96}));

    const QKeyEvent key(QEvent::KeyPress, Qt::Key_Eacute, Qt::ShiftModifier, 7, 99, 1,
                        QStringLiteral("\u00c9"), true);
    const GLKeyEvent2 typed = fromQt(key, &widget);
    EXPECT_EQ(fromQt(toQt(typed, key.type()), &widget), typed);
    EXPECT_EQ(typed.text, u"\u00c9");

    QInputMethodEvent composing(QStringLiteral("pre"), {{QInputMethodEvent::Cursor, 1, 1, {}}});
    composing.setCommitString(QStringLiteral("done"), -2, 2);
    const QInputMethodEvent composed = toQt(fromQt(composing, nullptr));
    EXPECT_EQ(composed.commitString(), composing.commitString());
    EXPECT_EQ(composed.attributes().size(), 1);
    EXPECT_EQ(composed.replacementStart(), -2);
}

TEST(InputEventsTest, WheelThatTurnsBothWaysCountsUpAndDown)
{
    const auto delta = [](const QPoint& turn) {
        return fromQt(QWheelEvent({}, {}, {}, turn, {}, {}, Qt::NoScrollPhase, false), nullptr)
            .delta;
    };
    EXPECT_EQ(delta({-120, 0}), -120);
    EXPECT_EQ(delta({30, -15}), -15);
}

TEST(InputEventsTest, DragTakesOnlyListedFormatsWithinTheLimit)
{
    QMimeData data;
    data.setData(QStringLiteral("text/plain"), "label");
    data.setData(QStringLiteral("application/x-qabstractitemmodeldatalist"), "\1\2");
    data.setData(QStringLiteral("image/png"), QByteArray(int(kMaxMimeBytes) + 1, 'x'));
    data.setData(QStringLiteral("text/html"), QByteArray(int(kMaxMimeBytes), 'x'));
    const std::array<std::string, 4> listed{"text/html", "text/plain", "image/png", "absent"};
    const GLMimeData taken = fromQt(data, listed);
    EXPECT_EQ(taken.formats(), (std::vector<std::string>{"text/html", "text/plain"}));

    const QDragEnterEvent enter({5, 6}, Qt::CopyAction | Qt::LinkAction, &data, Qt::LeftButton,
                                Qt::ControlModifier);
    const GLDragEvent2 drag = fromQt(enter, nullptr, nullptr, taken);
    EXPECT_EQ(drag.mimeData.data("text/plain"), "label");
    EXPECT_EQ(drag.possibleActions, DropAction::Copy | DropAction::Link);
    EXPECT_EQ(drag.position, (GLPoint<int>{5, 6}));
}

TEST(InputEventsTest, CopiesOfDragDataGoTheirOwnWays)
{
    GLMimeData first;
    first.setData("text/plain", "a");
    GLMimeData second = first;
    EXPECT_EQ(second, first);
    second.setData("text/plain", "b");
    second.setData("", "no name");
    EXPECT_EQ(first.data("text/plain"), "a");
    EXPECT_EQ(second.data("text/plain"), "b");
    EXPECT_FALSE(second.hasFormat(""));
}

} // namespace
