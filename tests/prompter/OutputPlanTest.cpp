#include "model/OutputPlan.h"
#include "model/ColourNames.h"
#include "model/HandController.h"

#include "corekit/framework/Geometry.h"

#include <gtest/gtest.h>

using namespace prompter;

namespace {

const Display desk{"DP-1", "", {0, 0, 1920, 1080}}, left{"HDMI-1", "", {-1280, 0, 0, 720}},
    right{"HDMI-2", "", {1920, 0, 3200, 720}};
constexpr POINT deskMiddle{500, 500};
constexpr FrameForm mirrored{true, false, Turn::none};

std::string NamesOf(const std::vector<PlannedOutput>& plan)
{
    std::string names;
    for (const PlannedOutput& output : plan) names += output.display + " ";
    return names;
}

TEST(OutputPlan, EveryWantedDisplayThatIsThereShowsThePromptInItsOwnForm)
{
    const OutputSettings wanted[] = {{"HDMI-2", mirrored}, {"HDMI-1"}, {"DP-1", {}, false}, {"Gone"}};
    const Display all[] = {desk, left, right};
    const auto plan = PlanOutputs(wanted, all);
    EXPECT_EQ(NamesOf(plan), "HDMI-1 HDMI-2 ");
    EXPECT_EQ(plan[1].form, mirrored);
    EXPECT_EQ(plan[1].place.left, 1920);
    const Display fewer[] = {desk, right};
    EXPECT_EQ(NamesOf(PlanOutputs(wanted, fewer)), "HDMI-2 ") << "one of them was unplugged";
}

TEST(OutputPlan, AnotherDisplayThanTheDesksStandsIn)
{
    const OutputSettings wanted[] = {{"Gone"}, {"HDMI-1", mirrored, false}};
    const Display all[] = {desk, left}, one[] = {desk};
    EXPECT_EQ(NamesOf(PlanStandIn(wanted, all, deskMiddle)), "HDMI-1 ");
    EXPECT_EQ(PlanStandIn(wanted, all, deskMiddle)[0].form, mirrored);
    EXPECT_EQ(NamesOf(PlanStandIn(wanted, one, deskMiddle)), "DP-1 ");
    EXPECT_TRUE(PlanStandIn(wanted, {}, deskMiddle).empty());
}

std::vector<ControllerEvent> EventsOf(std::initializer_list<int> bytes)
{
    ControllerParser parser;
    std::vector<ControllerEvent> events;
    for (const int byte : bytes)
        if (const auto event = parser.Take(static_cast<std::uint8_t>(byte))) events.push_back(*event);
    return events;
}

TEST(HandController, PairsMeanSpeedWheelAndButtons)
{
    using Events = std::vector<ControllerEvent>;
    using enum ControllerEvent::Kind;
    EXPECT_EQ(EventsOf({0x80, 64, 0x80, 0, 0x80, 127}), (Events{{speed, 0}, {speed, -64}, {speed, 63}}));
    EXPECT_EQ(EventsOf({0x81, 63, 0x81, 66}), (Events{{wheel, -1}, {wheel, 2}}));
    EXPECT_EQ(EventsOf({0x82, 1, 0x82, 12}), (Events{{button, 1}, {button, 12}}));
}

TEST(HandController, WhatDoesNotFitIsPassedOver)
{
    const std::vector<ControllerEvent> start = {{ControllerEvent::Kind::button, 1}};
    EXPECT_EQ(EventsOf({5, 64, 0x82, 1}), start) << "joined in the middle of a pair";
    EXPECT_EQ(EventsOf({0x80, 0x82, 1}), start) << "a byte was lost";
    EXPECT_EQ(EventsOf({0x82, 0, 0x9F, 1, 1, 0x82, 1}), start) << "unknown ones";
}

TEST(ColourNames, GoThereAndBack)
{
    for (const COLORREF colour : {RGB(255, 255, 255), RGB(255, 160, 0), RGB(1, 2, 254)})
        EXPECT_EQ(ParseColour(ColourText(colour)), colour);
    EXPECT_EQ(ColourText(RGB(1, 2, 254)), "#0102FE");
    EXPECT_EQ(ParseColour(" dark BLUE "), RGB(0, 0, 80));
    for (const char* const wrong : {"", "blu", "#12345", "#1234567", "#12345G", "123456", "#-12345"})
        EXPECT_FALSE(ParseColour(wrong)) << wrong;
}

TEST(OutputPlan, AWindowOpensWhollyOnADisplayThatIsThere)
{
    constexpr LONG far = 2147483647;
    const struct {
        RECT kept, shown;
    } cases[] = {
        {{80, 60, 1360, 860}, {80, 60, 1360, 860}},
        {{-1300, -20, -500, 300}, {-1280, 0, -480, 320}},   // mostly on the left display
        {{5000, 100, 6000, 500}, {904, 100, 1904, 500}},    // on none
        {{1000, 900, 1800, 1300}, {1000, 632, 1800, 1032}}, // below the edge
        {{-far, -far, far, far}, {0, 0, 1904, 1032}},
    };
    const Display all[] = {desk, left};
    for (const auto& each : cases) {
        EXPECT_EQ(CRect(PlaceInSight(each.kept, all)), CRect(each.shown)) << each.shown.left;
    }
    EXPECT_EQ(CRect(PlaceInSight(cases[2].kept, {})), CRect(cases[2].kept));
}

} // namespace
