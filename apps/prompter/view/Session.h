// A prompter at work: the script, its layout, the motion, and the frame that every display shows.
//
// Windows, remote control and hand controllers call the operations; who shows the frame listens for a new
// one. Times are microseconds of a steady clock, given by the caller, so that a test moves them by hand.
// User-interface thread.
#pragma once

#include "model/PromptAction.h"
#include "model/ReadRate.h"
#include "model/Remote.h"
#include "model/Scroller.h"
#include "view/FrameBuffer.h"
#include "view/FramePainter.h"

#include <functional>
#include <vector>

namespace prompter {

enum class Clock { machine, pal, ntsc }; // frames a second of the clock: as the machine is set, 25, 30

struct SessionSettings {
    PromptStyle style;
    ReadRate rate;
    SIZE frame{1920, 1080};
    bool showsStatus = true;
    Clock clock = Clock::machine;
    int countdownSeconds = 0;
};

class Session {
public:
    explicit Session(Script& script);

    // Throws CChainedException if no face can be made.
    void SetSettings(const SessionSettings& settings, std::int64_t now);
    const SessionSettings& Settings() const { return m_settings; }
    // After any change of the script.
    void ScriptChanged(std::int64_t now);
    Script& TheScript() { return m_script; }

    // ---- Motion
    void Start(std::int64_t now); // by way of the countdown, if there is one
    void Stop(std::int64_t now);
    void Toggle(std::int64_t now);
    bool IsRunning() const { return m_scroller.IsRunning() || m_startsAt >= 0; }
    void SetSpeed(int tenths, std::int64_t now) { m_scroller.SetSpeed(tenths, now); }
    int Speed() const { return m_scroller.Speed(); }
    void StepLines(int lines, std::int64_t now);
    void StepStories(int stories, std::int64_t now);
    void StepPages(int pages, std::int64_t now);
    void DragBy(double pixels, std::int64_t now); // of the frame, downwards positive
    void GoToStory(std::uint64_t key, std::int64_t now);
    bool GoToStoryNumber(int number, std::int64_t now); // from 1; false if there is none
    void GoToOffset(std::uint64_t story, std::size_t offset, std::int64_t now);
    void GoToStart(std::int64_t now) { m_scroller.MoveTo(0, now); }
    void GoToEnd(std::int64_t now) { m_scroller.MoveTo(m_layout.Height(), now); }
    void SetBlank(bool blank) { m_isBlank = blank; }
    bool IsBlank() const { return m_isBlank; }

    // ---- Markers, which move with their text
    void ToggleMarker(std::int64_t now); // at the line being read
    void ForgetMarkers() { m_markers.clear(); }
    bool StepMarker(int direction, std::int64_t now); // false if there is none on that side

    // ---- Where it stands
    std::uint64_t CurrentStory(std::int64_t now) const;
    Anchor Place(std::int64_t now) const { return m_layout.AnchorAt(m_scroller.Position(now)); }
    double SecondsRead() const { return static_cast<double>(m_microsecondsRead) * 1e-6; }
    double SecondsLeft(std::int64_t now) const; // at this speed, -1 while it stands
    // What a key or a hand controller asks for; false for what a window does itself (askForStory, leave).
    bool Perform(PromptAction action, int value, std::int64_t now);
    // The answer to a line of remote control, which is carried out.
    std::string Do(const RemoteCommand& command, std::int64_t now);

    // ---- The frame
    // Brings the frame to what it is to be at a time, which may have just passed; true if it is to be shown.
    bool Tick(std::int64_t then, std::int64_t now);
    bool Tick(std::int64_t now) { return Tick(now, now); }
    // Draws the frame of a time to come, so that the Tick of that time has nothing left to do unless
    // something happens before.
    void Prepare(std::int64_t then, std::int64_t now);
    const FrameBuffer& Frame() const { return m_frame; }

private:
    std::vector<Anchor> HeldAnchors(std::int64_t now) const;
    void LayOut(std::vector<Anchor> held, std::int64_t now);
    bool IsCountingDown(std::int64_t now) const { return m_startsAt >= 0 && now < m_startsAt; }
    bool Draw(FrameState state); // false if the frame shows it already
    FrameState StateAt(std::int64_t then, std::int64_t now) const;
    std::u16string StatusLine(std::int64_t then, std::int64_t now) const;

    Script& m_script;
    SessionSettings m_settings;
    PromptFace m_face;
    PromptLayout m_layout;
    FramePainter m_painter;
    Scroller m_scroller;
    FrameBuffer m_frame;
    std::vector<Anchor> m_markers;
    bool m_isBlank = false;
    std::int64_t m_startsAt = -1; // of a countdown; -1 for none
    std::int64_t m_lastTick = -1, m_microsecondsRead = 0;
    FrameState m_drawn; // what the frame shows
    bool m_isStale = true;
    bool m_isAhead = false; // the frame has not been told of yet
};

} // namespace prompter
