#include "view/Session.h"

#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace prompter;

namespace {

constexpr std::int64_t second = 1000000;

class Prompting : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        CUnicodeManager::Initialise(1);
    }
    void SetUp() override
    {
        m_script.SetText(u"one\ntwo\nthree\n---\nfour\nfive\n---\nsix");
        SessionSettings settings;
        settings.style.size = 50; // lines of 70 pixels
        settings.rate = {true, 1, 2, 15};
        settings.frame = {640, 360};
        settings.showsStatus = false;
        m_session.SetSettings(settings, 0);
    }
    std::string Say(const char* line, std::int64_t now) { return m_session.Do(ParseRemoteLine(line), now); }
    std::string TextAtMark(std::int64_t now)
    {
        const Anchor place = m_session.Place(now);
        const int index = m_script.IndexOf(place.story);
        const std::u16string text = index < 0 ? u"" : m_script.At(index).text.substr(place.offset);
        const std::u16string line = text.substr(0, text.find(u'\n'));
        return {line.begin(), line.end()};
    }

    Script m_script;
    Session m_session{m_script};
};

TEST_F(Prompting, ReadsOneLineInTheTimeOfItsRate)
{
    EXPECT_EQ(Say("start", 0), "ok");
    EXPECT_EQ(TextAtMark(1 * second), "one");
    EXPECT_EQ(TextAtMark(2 * second + 1), "two");
    EXPECT_EQ(Say("speed 2", 2 * second), "ok");
    EXPECT_EQ(TextAtMark(3 * second + 1), "three");
    EXPECT_EQ(Say("speed -4", 3 * second), "ok") << "slower by 4: into reverse";
    EXPECT_EQ(TextAtMark(4 * second - 1), "two");
    EXPECT_EQ(Say("state", 4 * second), "ok runs speed -2.0 story 1 of 3");
}

TEST_F(Prompting, StepsByLinesStoriesAndMarkers)
{
    EXPECT_EQ(Say("story 2", 0), "ok");
    EXPECT_EQ(TextAtMark(0), "four");
    EXPECT_EQ(Say("line +1", 0), "ok");
    EXPECT_EQ(TextAtMark(0), "five");
    m_session.ToggleMarker(0);
    EXPECT_EQ(Say("story 9", 0), "error: there are 3 stories");
    m_session.GoToStart(0);
    m_script.SetStoryText(1, u"three and a half\nfour\nfive\n");
    m_session.ScriptChanged(0);
    EXPECT_TRUE(m_session.StepMarker(1, 0));
    EXPECT_EQ(TextAtMark(0), "five") << "the marker has moved with its line";
    EXPECT_FALSE(m_session.StepMarker(1, 0));
    m_session.StepStories(1, 0);
    EXPECT_EQ(TextAtMark(0), "six");
    m_session.StepStories(5, 0);
    EXPECT_EQ(TextAtMark(0), "six");
}

TEST_F(Prompting, ACountdownRunsOutIntoMotion)
{
    SessionSettings settings = m_session.Settings();
    settings.countdownSeconds = 3;
    m_session.SetSettings(settings, 0);
    m_session.Start(0);
    EXPECT_TRUE(m_session.IsRunning());
    EXPECT_TRUE(m_session.Tick(1 * second));
    EXPECT_EQ(TextAtMark(1 * second), "one");
    m_session.Tick(5 * second + 1); // late by two seconds, which are made good
    EXPECT_EQ(TextAtMark(5 * second + 1), "two");
    m_session.Stop(6 * second);
    EXPECT_FALSE(m_session.IsRunning());
}

TEST_F(Prompting, FramesAreDrawnOnlyWhenSomethingMoved)
{
    EXPECT_TRUE(m_session.Tick(0));
    EXPECT_FALSE(m_session.Tick(second));
    m_session.Start(second);
    EXPECT_TRUE(m_session.Tick(2 * second));
    m_session.Stop(2 * second);
    EXPECT_FALSE(m_session.Tick(3 * second));
    m_session.SetBlank(true);
    EXPECT_TRUE(m_session.Tick(3 * second));
    m_script.SetStoryText(0, u"changed");
    m_session.ScriptChanged(3 * second);
    EXPECT_TRUE(m_session.Tick(3 * second));
    EXPECT_NEAR(m_session.SecondsRead(), 1, 0.001);
}

// What happens between the drawing of a frame and its time shows in it.
TEST_F(Prompting, AFrameDrawnAheadIsTheOneOfItsTime)
{
    const struct {
        const char* what;
        void (*happens)(Session&);
    } cases[] = {
        {"nothing", [](Session&) {}},
        {"a step", [](Session& s) { s.StepLines(1, second + 1); }},
        {"a stop", [](Session& s) { s.Stop(second + 1); }},
        {"blank", [](Session& s) { s.SetBlank(true); }},
    };
    for (const auto& c : cases) {
        Session plain(m_script), ahead(m_script);
        for (Session* session : {&plain, &ahead}) {
            session->SetSettings(m_session.Settings(), 0);
            session->Start(0);
            session->Tick(second);
            if (session == &ahead) session->Prepare(2 * second, second);
            c.happens(*session);
            EXPECT_TRUE(session->Tick(2 * second) || session == &plain) << c.what;
        }
        EXPECT_TRUE(std::ranges::equal(plain.Frame().Pixels(), ahead.Frame().Pixels())) << c.what;
        ahead.Prepare(2 * second, 2 * second);
        EXPECT_FALSE(ahead.Tick(2 * second)) << "the same frame is not shown twice: " << c.what;
    }
}

} // namespace
