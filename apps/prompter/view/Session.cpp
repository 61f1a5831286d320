#include "view/Session.h"

#include "corekit/foundation/Timecode.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <utility>

namespace prompter {
namespace {

constexpr std::int64_t second = 1000000;

std::u16string Wide(const char* text) { return {text, text + std::char_traits<char>::length(text)}; }

// The studio's clock so many microseconds from now; frames are those of the second.
CTimecode LocalTime(std::int64_t ahead)
{
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    const std::int64_t then = now.tv_sec * second + now.tv_nsec / 1000 + ahead;
    const std::time_t seconds = then / second;
    std::tm local{};
    localtime_r(&seconds, &local);
    const std::int64_t frame = then % second / (second / CTimecode::GetFramesPerSec());
    return {local.tm_hour, local.tm_min, local.tm_sec, static_cast<int>(frame)};
}

bool IsSame(const FrameState& a, const FrameState& b)
{
    return std::lround(a.position) == std::lround(b.position) && a.isBlank == b.isBlank &&
           a.countdown == b.countdown && a.status == b.status && a.markers == b.markers;
}

} // namespace

Session::Session(Script& script) : m_script(script), m_painter(m_layout, m_face) {}

void Session::SetSettings(const SessionSettings& settings, std::int64_t now)
{
    std::vector<Anchor> held = HeldAnchors(now);
    m_face.SetStyle(settings.style);
    m_settings = settings;
    m_painter.SetStyle(settings.style);
    if (settings.clock == Clock::pal) CTimecode::SetPAL();
    if (settings.clock == Clock::ntsc) CTimecode::SetNTSC(0);
    m_frame.Resize(settings.frame);
    m_layout.SetForm(FramePainter::TextWidth(settings.style, settings.frame.cx), settings.style.LineHeight());
    m_scroller.SetPixelsPerSecond(m_layout.LineHeight() / settings.rate.SecondsPerLine(), now);
    LayOut(std::move(held), now);
}

// The view first, then the markers.
std::vector<Anchor> Session::HeldAnchors(std::int64_t now) const
{
    std::vector<Anchor> held = {Place(now)};
    held.insert(held.end(), m_markers.begin(), m_markers.end());
    return held;
}

void Session::LayOut(std::vector<Anchor> held, std::int64_t now)
{
    std::vector<std::uint64_t> marked;
    for (const Anchor& marker : m_markers) marked.push_back(marker.story);
    m_layout.Update(m_script, m_face, held);
    m_markers.clear();
    for (std::size_t i = 0; i < marked.size(); ++i)
        if (held[i + 1].story == marked[i])
            m_markers.push_back(held[i + 1]); // the marker goes with its story
    m_scroller.SetRange(m_layout.Height(), now);
    m_scroller.MoveTo(m_layout.YOf(held.front()), now);
    m_painter.Forget();
    m_isStale = true;
}

void Session::ScriptChanged(std::int64_t now) { LayOut(HeldAnchors(now), now); }

void Session::Start(std::int64_t now)
{
    if (IsRunning()) return;
    if (m_settings.countdownSeconds > 0)
        m_startsAt = now + m_settings.countdownSeconds * second;
    else
        m_scroller.Start(now);
}

void Session::Stop(std::int64_t now)
{
    m_startsAt = -1;
    m_scroller.Stop(now);
}

void Session::Toggle(std::int64_t now) { IsRunning() ? Stop(now) : Start(now); }

void Session::StepLines(int lines, std::int64_t now)
{
    const double line = m_layout.LineHeight();
    const double at = std::round(m_scroller.Position(now) / line);
    m_scroller.MoveTo((at + lines) * line, now);
}

void Session::StepPages(int pages, std::int64_t now)
{
    StepLines(pages * std::max(m_settings.frame.cy / m_layout.LineHeight() - 1, 1), now);
}

void Session::StepStories(int stories, std::int64_t now)
{
    const int index = m_script.IndexOf(CurrentStory(now));
    GoToStory(m_script.At(std::clamp(index + stories, 0, m_script.Count() - 1)).key, now);
}

void Session::DragBy(double pixels, std::int64_t now)
{
    m_scroller.MoveTo(m_scroller.Position(now) - pixels, now);
}

void Session::GoToStory(std::uint64_t key, std::int64_t now)
{
    m_scroller.MoveTo(m_layout.YOfStory(key), now);
}

bool Session::GoToStoryNumber(int number, std::int64_t now)
{
    if (number < 1 || number > m_script.Count()) return false;
    GoToStory(m_script.At(number - 1).key, now);
    return true;
}

void Session::GoToOffset(std::uint64_t story, std::size_t offset, std::int64_t now)
{
    m_scroller.MoveTo(m_layout.YOfOffset(story, offset), now);
}

void Session::ToggleMarker(std::int64_t now)
{
    Anchor here = Place(now);
    here.below = 0;
    const auto same = [&](const Anchor& m) { return m.story == here.story && m.offset == here.offset; };
    if (std::erase_if(m_markers, same) == 0) m_markers.push_back(here);
}

bool Session::StepMarker(int direction, std::int64_t now)
{
    const double here = m_scroller.Position(now);
    double best = -1;
    for (const Anchor& marker : m_markers) {
        const double y = m_layout.YOf(marker);
        const bool isAhead = direction > 0 ? y > here + 1 : y < here - 1;
        if (isAhead && (best < 0 || std::abs(y - here) < std::abs(best - here))) best = y;
    }
    if (best < 0) return false;
    m_scroller.MoveTo(best, now);
    return true;
}

std::uint64_t Session::CurrentStory(std::int64_t now) const
{
    return m_layout.StoryAt(m_scroller.Position(now));
}

double Session::SecondsLeft(std::int64_t now) const
{
    const std::int64_t left = m_scroller.TimeLeft(now);
    return left < 0 ? -1 : static_cast<double>(left) * 1e-6;
}

bool Session::Perform(PromptAction action, int value, std::int64_t now)
{
    switch (action) {
    case PromptAction::startOrStop:
        return Toggle(now), true;
    case PromptAction::faster:
        return SetSpeed(Speed() + value, now), true;
    case PromptAction::slower:
        return SetSpeed(Speed() - value, now), true;
    case PromptAction::setSpeed:
        return SetSpeed(value, now), true;
    case PromptAction::stepLines:
        return StepLines(value, now), true;
    case PromptAction::stepStories:
        return StepStories(value, now), true;
    case PromptAction::goToStart:
        return GoToStart(now), true;
    case PromptAction::goToEnd:
        return GoToEnd(now), true;
    case PromptAction::toggleMarker:
        return ToggleMarker(now), true;
    case PromptAction::stepMarkers:
        return StepMarker(value, now), true;
    case PromptAction::blank:
        return SetBlank(!m_isBlank), true;
    case PromptAction::askForStory:
    case PromptAction::leave:
        break;
    }
    return false;
}

std::string Session::Do(const RemoteCommand& command, std::int64_t now)
{
    struct {
        Session& session;
        std::int64_t now;

        std::string operator()(const StartCommand&) { return session.Start(now), "ok"; }
        std::string operator()(const StopCommand&) { return session.Stop(now), "ok"; }
        std::string operator()(const BlankCommand& c) { return session.SetBlank(c.on), "ok"; }
        std::string operator()(const LineCommand& c) { return session.StepLines(c.lines, now), "ok"; }
        std::string operator()(const RemoteError& e) { return e.answer; }
        std::string operator()(const SpeedCommand& c)
        {
            session.SetSpeed(c.relative == Relative::yes ? session.Speed() + c.tenths : c.tenths, now);
            return "ok";
        }
        std::string operator()(const StoryCommand& c)
        {
            if (c.relative == Relative::yes) return session.StepStories(c.number, now), "ok";
            if (session.GoToStoryNumber(c.number, now)) return "ok";
            return "error: there are " + std::to_string(session.m_script.Count()) + " stories";
        }
        std::string operator()(const StateCommand&)
        {
            char text[96];
            std::snprintf(text, sizeof text, "ok %s speed %.1f story %d of %d",
                          session.IsRunning() ? "runs" : "stands", session.Speed() / 10.0,
                          session.m_script.IndexOf(session.CurrentStory(now)) + 1, session.m_script.Count());
            return text;
        }
    } perform{*this, now};
    return std::visit(perform, command);
}

std::u16string Session::StatusLine(std::int64_t then, std::int64_t now) const
{
    if (!m_settings.showsStatus) return {};
    const int frames = CTimecode::GetFramesPerSec();
    const CTimecode clock = LocalTime(then - now);
    const auto read = static_cast<int>(SecondsRead());
    const double left = SecondsLeft(then);
    char text[128];
    int length = std::snprintf(text, sizeof text, "%02d:%02d:%02d:%02d @%d  x%.1f  %d:%02d", clock.GetHours(),
                               clock.GetMinutes(), clock.GetSeconds(), clock.GetFrames(), frames,
                               Speed() / 10.0, read / 60, read % 60);
    if (left >= 0)
        std::snprintf(text + length, sizeof text - static_cast<std::size_t>(length), " / -%d:%02d",
                      static_cast<int>(left) / 60, static_cast<int>(left) % 60);
    return Wide(text);
}

FrameState Session::StateAt(std::int64_t then, std::int64_t now) const
{
    FrameState state;
    state.position = m_scroller.Position(then);
    state.isBlank = m_isBlank;
    if (IsCountingDown(then)) state.countdown = static_cast<int>((m_startsAt - then + second - 1) / second);
    state.status = StatusLine(then, now);
    for (const Anchor& marker : m_markers) state.markers.push_back(m_layout.YOf(marker));
    return state;
}

bool Session::Draw(FrameState state)
{
    if (!m_frame.Context() || (!m_isStale && IsSame(state, m_drawn))) return false;
    m_painter.Paint(m_frame, state);
    m_drawn = std::move(state);
    m_isStale = false;
    return true;
}

bool Session::Tick(std::int64_t then, std::int64_t now)
{
    if (m_startsAt >= 0 && then >= m_startsAt) {
        m_scroller.Start(m_startsAt);
        m_startsAt = -1;
    }
    if (m_lastTick >= 0 && m_scroller.IsRunning() && Speed() != 0) m_microsecondsRead += then - m_lastTick;
    m_lastTick = then;
    const bool wasAhead = std::exchange(m_isAhead, false);
    return Draw(StateAt(then, now)) || wasAhead;
}

void Session::Prepare(std::int64_t then, std::int64_t now) { m_isAhead |= Draw(StateAt(then, now)); }

} // namespace prompter
