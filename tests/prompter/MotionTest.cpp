#include "model/ReadingTimes.h"
#include "model/Remote.h"
#include "model/Scroller.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>

#include <string>

using namespace prompter;

namespace {

constexpr std::int64_t second = 1000000;

TEST(Scroller, GoesEvenlyThroughEveryChangeOfSpeed)
{
    Scroller scroller;
    scroller.SetPixelsPerSecond(100, 0);
    scroller.SetRange(1000, 0);
    EXPECT_EQ(scroller.Position(5 * second), 0) << "stands until it is started";
    scroller.Start(5 * second);
    EXPECT_DOUBLE_EQ(scroller.Position(6 * second), 100);
    scroller.SetSpeed(20, 6 * second);
    EXPECT_DOUBLE_EQ(scroller.Position(7 * second), 300);
    EXPECT_EQ(scroller.TimeLeft(7 * second), 3500000);
    scroller.SetSpeed(-10, 7 * second);
    EXPECT_DOUBLE_EQ(scroller.Position(8 * second), 200);
    EXPECT_EQ(scroller.TimeLeft(8 * second), 2 * second);
    EXPECT_EQ(scroller.Position(60 * second), 0) << "and not beyond the beginning";
    scroller.Stop(60 * second);
    scroller.MoveTo(5000, 60 * second);
    EXPECT_EQ(scroller.Position(61 * second), 1000);
    scroller.SetRange(400, 61 * second);
    EXPECT_EQ(scroller.Position(61 * second), 400);
}

TEST(Scroller, TenHoursOfFramesAddNoError)
{
    Scroller scroller;
    scroller.SetPixelsPerSecond(33.3, 0);
    scroller.SetRange(1e9, 0);
    scroller.Start(0);
    const std::int64_t end = 36000 * second;
    for (std::int64_t now = 0; now < end; now += 16667) (void)scroller.Position(now);
    EXPECT_DOUBLE_EQ(scroller.Position(end), 33.3 * 36000);
}

TEST(ReadRate, CountsLinesAsTheSettingsSay)
{
    const struct {
        ReadRate rate;
        const char16_t* text;
        double seconds;
    } cases[] = {
        {{true, 3, 10, 15}, u"fifteen letters", 10 / 3.0}, // 14 of them are spoken
        {{true, 1, 2, 5}, u"abcdef\n\nab", 6},
        {{false, 3, 10, 15}, u"abc\nabc", 2},
        {{false, 3, 10, 30}, u"", 0},
        {{true, 0, 0, 0}, u"a", 1},
        {{true, 1, 1, 1}, u"\u0628\u064E\u0628", 2}, // marks take no time
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(c.rate.SecondsFor(c.text), c.seconds);
}

TEST(ReadingTimes, FollowEditsAsIfTheStoryWereCountedAnew)
{
    Script script;
    script.SetText(u"one two three\nfour\n\nfive six seven eight\nnine");
    ReadRate rate{true, 1, 2, 4};
    ReadingTimes times;
    const auto expectSame = [&] {
        EXPECT_DOUBLE_EQ(times.SecondsFor(script.At(0), rate), rate.SecondsFor(script.At(0).text));
    };
    expectSame();
    for (const char16_t* text : {u"one two three\nfour and a half\n\nfive six seven eight\nnine", u"", u"one",
                                 u"one\n", u"zero\none\nand more"}) {
        const std::u16string before = script.At(0).text;
        script.SetStoryText(0, text);
        const LineChange& change = script.At(0).change;
        times.StoryChanged(script.At(0), before.substr(change.at, change.removed), rate);
        expectSame();
    }
    script.SetStoryText(0, u"nobody told of this");
    expectSame();
    rate.charactersPerLine = 2;
    expectSame();
}

std::string Described(const RemoteCommand& command)
{
    struct {
        std::string operator()(const StartCommand&) { return "start"; }
        std::string operator()(const StopCommand&) { return "stop"; }
        std::string operator()(const StateCommand&) { return "state"; }
        std::string operator()(const SpeedCommand& c) { return "speed " + Number(c.tenths, c.relative); }
        std::string operator()(const StoryCommand& c) { return "story " + Number(c.number, c.relative); }
        std::string operator()(const LineCommand& c) { return "line " + std::to_string(c.lines); }
        std::string operator()(const BlankCommand& c) { return c.on ? "blank" : "show"; }
        std::string operator()(const RemoteError& e) { return e.answer; }
        static std::string Number(int n, Relative r)
        {
            return std::to_string(n) + (r == Relative::yes ? "r" : "");
        }
    } describe;
    return std::visit(describe, command);
}

TEST(Remote, EachLineIsOneCommandOrAClearError)
{
    for (CaseRow row : CaseRows(TEST_DATA "/remote_lines.tsv")) {
        const std::string line = row.Bytes();
        EXPECT_EQ(Described(ParseRemoteLine(line)), row.Word()) << row.Line();
    }
    EXPECT_EQ(Described(ParseRemoteLine(std::string(257, 'x'))), "error: the line is too long");
}

} // namespace
