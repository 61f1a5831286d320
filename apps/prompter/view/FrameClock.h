// Says when a frame is due, sixty times a second.
//
// A thread keeps the times by the steady clock and in fractions of a millisecond: a timer of whole
// milliseconds is early by a frame in every 25. The function is called on the thread that made the clock. A
// frame that comes due while the last has not been told is left out.
#pragma once

#include "corekit/platform/Messages.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace prompter {

class FrameClock {
public:
    explicit FrameClock(std::function<void()> onFrame);
    ~FrameClock(); // waits for the thread
    FrameClock(const FrameClock&) = delete;
    FrameClock& operator=(const FrameClock&) = delete;

    static constexpr int framesPerSecond = 60;

private:
    void Run();

    std::function<void()> m_onFrame;
    std::atomic<bool> m_isDue = false;
    MessageWindow m_window; // its messages say that a frame is due
    std::mutex m_lock;
    std::condition_variable m_ends;
    bool m_isEnding = false;
    std::thread m_thread; // the last member: it uses the others
};

} // namespace prompter
