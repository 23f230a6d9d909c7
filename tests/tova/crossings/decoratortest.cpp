#include "nodes/crossings/segmentcrossings.h"

#include "tova/nodes/rectnode.h"

#include <gmock/gmock.h>

#include <sstream>

namespace Tova2 {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Clearance = PathXSegmentDecorator::Clearance;

/// "M x,y" and "L x,y" for lines, "C x,y x,y x,y" for curves.
std::string text(const QPainterPath& path)
{
    std::ostringstream out;
    constexpr const char* kNames[] = {"M ", "L ", "C ", ""};
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto element = path.elementAt(i);
        out << (i ? " " : "") << kNames[element.type] << element.x << ',' << element.y;
    }
    return out.str();
}

class DecoratorTest : public testing::Test {
protected:
    DecoratorTest() { m_other.setOpacity(0.5); }

    PathIntersection at(double x, double y, double room = 1000) const
    {
        return {x, y, 0, WeakRef(m_other), {room, room, room, room}};
    }
    void decorate(const char* name, QPointF from, QPointF to,
                  const std::vector<PathIntersection>& crossings)
    {
        m_outline = {};
        m_outline.main.moveTo(from);
        decorateSegment(*makePathIntersectionsDecorator(name), context(),
                        SegmentCrossings(crossings), from, to);
        m_outline.main.lineTo(to);
    }
    const CrossingContext& context()
    {
        m_context.ownWidth = m_ownWidth;
        m_context.viewScale = m_scale;
        return m_context;
    }
    std::string main() const { return text(m_outline.main); }
    std::string thin() const { return text(m_outline.thinHops); }

    RectNode m_other;
    double m_ownWidth = 2, m_otherWidth = 4, m_scale = 1;
    CrossingOutline m_outline;
    CrossingContext m_context{m_outline, 1, 1, [this](const WeakRef&) { return m_otherWidth; }};
};

struct ClearanceCase {
    const char* name;
    const char* style;
    bool isVertical;
    double scale;
    Clearance expected; ///< for widths of 2 and 4
};
std::string clearanceName(const testing::TestParamInfo<ClearanceCase>& info)
{
    return info.param.name;
}
class ClearanceTest : public DecoratorTest, public testing::WithParamInterface<ClearanceCase> {};

TEST_P(ClearanceTest, IsTheBaseWithWidthsAtADampedScale)
{
    m_scale = GetParam().scale;
    const auto segment = makePathIntersectionsDecorator(GetParam().style)
                             ->createSegmentDecorator(context(), {0, 0}, {0, 9});
    EXPECT_EQ(segment->clearance(2, 4, GetParam().isVertical), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Crossings, ClearanceTest,
    testing::Values(ClearanceCase{"Pin", "pin", false, 1, {1, 4, 1, 4}},
                    ClearanceCase{"PinVertical", "pin", true, 1, {4, 1, 4, 1}},
                    ClearanceCase{"LightPinVertical", "light_pin", true, 1, {5, 1, 5, 1}},
                    ClearanceCase{"GradPin", "grad_pin", false, 1, {1, 7, 1, 7}},
                    ClearanceCase{"GradPinVertical", "grad_pin", true, 1, {7, 1, 7, 1}},
                    ClearanceCase{"HopIsLopsided", "hop", false, 1, {6.5, 6.5, 3, 6.5}},
                    ClearanceCase{"HopVertical", "hop", true, 1, {6.5, 3, 6.5, 6.5}},
                    ClearanceCase{"ThreefoldZoomHalves", "pin", true, 3, {2, 0.5, 2, 0.5}},
                    ClearanceCase{"HalfZoomDoubles", "pin", true, 0.5, {8, 2, 8, 2}},
                    ClearanceCase{"NoZoomCountsAsOne", "pin", true, 0, {4, 1, 4, 1}}),
    clearanceName);

TEST_F(DecoratorTest, NamesAreExact)
{
    for (const char* const name : {"hop", "pin", "grad_pin", "light_pin"}) {
        const auto decorator = makePathIntersectionsDecorator(name);
        ASSERT_TRUE(decorator) << name;
        EXPECT_EQ(decorator->name(), name);
        EXPECT_EQ(decorator->createSegmentDecorator(context(), {}, {})->isPinStyle(),
                  decorator->name() != "hop");
    }
    EXPECT_FALSE(makePathIntersectionsDecorator("Hop"));
    EXPECT_FALSE(makePathIntersectionsDecorator(""));
}

TEST_F(DecoratorTest, AHopBulgesToTheRightWhicheverWayTheLineRuns)
{
    decorate("hop", {20, 0}, {20, 99}, {at(20, 50)});
    EXPECT_EQ(main(), "M 20,0 L 20,43.5 C 27.5,43.5 27.5,56.5 20,56.5 L 20,99");
    decorate("hop", {20, 99}, {20, 0}, {at(20, 50)});
    EXPECT_EQ(main(), "M 20,99 L 20,56.5 C 27.5,56.5 27.5,43.5 20,43.5 L 20,0");
    EXPECT_EQ(thin(), "");
}

TEST_F(DecoratorTest, AHopOfAThinLineIsDrawnApart)
{
    m_ownWidth = 1; // clearance 3.5 + 0.5 + 2
    decorate("hop", {20, 0}, {20, 99}, {at(20, 50)});
    EXPECT_EQ(main(), "M 20,0 L 20,44 M 20,56 L 20,99");
    EXPECT_EQ(thin(), "M 20,44 C 26.5,44 26.5,56 20,56");
    m_scale = 0.5; // not when the view is zoomed out
    decorate("hop", {20, 0}, {20, 99}, {at(20, 50)});
    EXPECT_EQ(main(), "M 20,0 L 20,38 C 33,38 33,62 20,62 L 20,99");
    EXPECT_EQ(thin(), "");
}

TEST_F(DecoratorTest, HopsThatTouchBecomeOne)
{
    decorate("hop", {20, 0}, {20, 99}, {at(20, 40), at(20, 53)}); // boxes of 6.5 each
    EXPECT_EQ(main(), "M 20,0 L 20,33.5 C 27.5,33.5 26.5,46.5 26.5,46.5 "
                      "C 26.5,46.5 27.5,59.5 20,59.5 L 20,99");
    decorate("hop", {20, 0}, {20, 99}, {at(20, 40), at(20, 53.25)});
    EXPECT_EQ(main(), "M 20,0 L 20,33.5 C 27.5,33.5 27.5,46.5 20,46.5 "
                      "L 20,46.75 C 27.5,46.75 27.5,59.75 20,59.75 L 20,99");
}

TEST_F(DecoratorTest, ThinHopsMergeUpwardsInTheirOwnOutline)
{
    m_ownWidth = 1;
    decorate("hop", {20, 99}, {20, 0}, {at(20, 40), at(20, 50)});
    EXPECT_EQ(main(), "M 20,99 L 20,56 M 20,34 L 20,0");
    EXPECT_EQ(thin(), "M 20,56 C 26.5,56 26,45 26,45 C 26,45 26.5,34 20,34");
}

TEST_F(DecoratorTest, TheRowIsBrokenWhereTheArcPasses)
{
    // 3.5 + 1 + 2 to the right; half of the crossed width 4.
    decorate("hop", {0, 10}, {99, 10}, {at(20, 10)});
    EXPECT_EQ(main(), "M 0,10 L 24.5,10 M 28.5,10 L 99,10");
    decorate("hop", {99, 10}, {0, 10}, {at(20, 10)});
    EXPECT_EQ(main(), "M 99,10 L 28.5,10 M 24.5,10 L 0,10");
}

TEST_F(DecoratorTest, AThinArcLeavesAGapAsWideAsTheRow)
{
    m_otherWidth = 1;
    m_ownWidth = 3; // 3.5 + 2 to the right, 3 / 3 back
    decorate("hop", {0, 10}, {99, 10}, {at(20, 10)});
    EXPECT_EQ(main(), "M 0,10 L 23,10 M 26,10 L 99,10");
}

TEST_F(DecoratorTest, APinCutsTheColumnOnly)
{
    decorate("pin", {20, 0}, {20, 99}, {at(20, 50)});
    EXPECT_EQ(main(), "M 20,0 L 20,46 M 20,54 L 20,99");
    ASSERT_THAT(m_outline.pins, SizeIs(1));
    EXPECT_EQ(m_outline.pins[0].crossed, WeakRef(m_other));
    EXPECT_EQ(m_outline.pins[0].start, QPointF(20, 46));
    EXPECT_EQ(m_outline.pins[0].end, QPointF(20, 54));
    decorate("light_pin", {20, 99}, {20, 0}, {at(20, 50)});
    EXPECT_EQ(main(), "M 20,99 L 20,55 M 20,45 L 20,0");
    EXPECT_EQ(m_outline.pins[0].start, QPointF(20, 55));
    decorate("pin", {0, 10}, {99, 10}, {at(20, 10)});
    EXPECT_EQ(main(), "M 0,10 L 99,10");
    EXPECT_THAT(m_outline.pins, IsEmpty());
}

// Crossed at one place or nearly so, by several lines.
TEST_F(DecoratorTest, GapsThatMeetBecomeOne)
{
    for (const double second : {50.0, 53.0, 58.0}) { // clearances of 4
        decorate("pin", {20, 0}, {20, 99}, {at(20, 50), at(20, second)});
        EXPECT_EQ(m_outline.main.elementCount(), 4) << second;
        ASSERT_THAT(m_outline.pins, SizeIs(1)) << second;
        EXPECT_EQ(m_outline.pins[0].end.y(), second + 4);
    }
    decorate("pin", {20, 0}, {20, 99}, {at(20, 50), at(20, 58.5)});
    EXPECT_THAT(m_outline.pins, SizeIs(2));
    decorate("grad_pin", {20, 99}, {20, 0}, {at(20, 50), at(20, 49)}); // cuts of 2
    EXPECT_EQ(main(), "M 20,99 L 20,52 M 20,47 L 20,0");
    decorate("hop", {99, 10}, {0, 10}, {at(20, 10), at(17, 10)}); // gaps of 4
    EXPECT_EQ(main(), "M 99,10 L 28.5,10 M 21.5,10 L 0,10");
}

TEST_F(DecoratorTest, AGradientPinIsLongerThanItsGap)
{
    m_scale = 2; // crossed width 4 / 2; clearance (5 + 2) / 1.5
    decorate("grad_pin", {20, 99}, {20, 0}, {at(20, 50)});
    EXPECT_EQ(main(), "M 20,99 L 20,51 M 20,49 L 20,0");
    ASSERT_THAT(m_outline.pins, SizeIs(1));
    EXPECT_DOUBLE_EQ(m_outline.pins[0].start.y(), 50 + 7 / 1.5);
    EXPECT_DOUBLE_EQ(m_outline.pins[0].end.y(), 50 - 7 / 1.5);
}

TEST_F(DecoratorTest, OnASlantedSegmentAGradientPinIsAPoint)
{
    const auto slanted = [this](const char* name) {
        m_outline = {};
        return makePathIntersectionsDecorator(name)
            ->createSegmentDecorator(context(), {0, 0}, {40, 99})
            ->decorate(at(20, 50));
    };
    EXPECT_TRUE(slanted("grad_pin"));
    ASSERT_THAT(m_outline.pins, SizeIs(1));
    EXPECT_EQ(m_outline.pins[0].start, m_outline.pins[0].end);
    EXPECT_TRUE(slanted("pin"));
    EXPECT_THAT(m_outline.pins, IsEmpty());
    EXPECT_FALSE(slanted("hop"));
}

TEST_F(DecoratorTest, ACrossingWithJustTheRoomItNeedsIsNotDrawn)
{
    const Clearance needed{6.5, 3, 6.5, 6.5};
    for (std::size_t side = 0; side < 4; ++side) {
        PathIntersection crossing = at(20, 50);
        crossing.clearance = {6.75, 3.25, 6.75, 6.75};
        decorate("hop", {20, 0}, {20, 99}, {crossing});
        EXPECT_EQ(m_outline.main.elementCount(), 6) << side;
        crossing.clearance[side] = needed[side];
        decorate("hop", {20, 0}, {20, 99}, {crossing});
        EXPECT_EQ(main(), "M 20,0 L 20,99") << side;
    }
}

TEST_F(DecoratorTest, OnlyWhatIsOnTheSegmentIsDrawnInTheDirectionOfTravel)
{
    const std::vector<PathIntersection> all{at(20, 70), at(20, 30),  at(21, 50), at(20, 0),
                                            at(20, 99), at(20, 120), at(5, 30)};
    decorate("pin", {20, 99}, {20, 0}, all);
    EXPECT_EQ(main(), "M 20,99 L 20,74 M 20,66 L 20,34 M 20,26 L 20,0");
    const SegmentCrossings crossings(all);
    EXPECT_THAT(crossings.on({0, 30}, {99, 30}), ElementsAre(&all[6], &all[1]));
    EXPECT_THAT(crossings.on({0, 31}, {99, 30}), IsEmpty());
}

TEST_F(DecoratorTest, ADeadPathHasNoWidth)
{
    const PathIntersection crossing = at(20, 50);
    m_other.release();
    decorate("pin", {20, 0}, {20, 99}, {crossing});
    EXPECT_EQ(main(), "M 20,0 L 20,48 M 20,52 L 20,99");
}

} // namespace

} // namespace Tova2
