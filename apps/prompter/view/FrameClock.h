// Says when a frame is due, sixty times a second.
//
// Times are reckoned from the beginning by the steady clock, in fractions of a millisecond: a timer of whole
// milliseconds is early by a frame in every 25. A frame that comes due while the last is still being worked
// on is left out. User-interface thread.
#pragma once

#include "corekit/platform/EvenFrames.h"

#include <cstdint>

namespace prompter {

class FrameClock {
public:
    // Called with microseconds of the steady clock: when the frame was due, and when the next one is.
    using OnFrame = std::function<void(std::int64_t due, std::int64_t next)>;
    explicit FrameClock(OnFrame onFrame);

    static constexpr int framesPerSecond = 60;

private:
    using Time = std::chrono::steady_clock::time_point;
    Time TimeOf(std::int64_t frame) const;
    void Ring();

    OnFrame m_onFrame;
    Time m_start = std::chrono::steady_clock::now();
    std::int64_t m_frame = 1; // the one that is waited for
    corekit::FrameTimer m_timer;
};

} // namespace prompter
