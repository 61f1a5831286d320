// What a window that shows moving pictures needs so that they move evenly. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <chrono>
#include <functional>
#include <memory>

namespace corekit {

// Calls a function at times of the steady clock, to the fraction of a millisecond.
//
// The function is called by the loop of messages that runs at that time, also by one of a dialog or menu. It
// may set the next time, and may end the timer.
class COREKIT_API FrameTimer {
public:
    // Without a display server's loop, or without descriptors, nothing is ever called.
    explicit FrameTimer(std::function<void()> onDue);
    ~FrameTimer();
    FrameTimer(const FrameTimer&) = delete;
    FrameTimer& operator=(const FrameTimer&) = delete;

    // Replaces the time that was set; one that has passed is due at once.
    void SetDue(std::chrono::steady_clock::time_point due);

private:
    struct Alarm;
    std::unique_ptr<Alarm> m_alarm;
};

// Returns when the display server has taken what the window painted last. The next paint need not wait for
// it then.
COREKIT_API void AwaitShown(HWND window);

} // namespace corekit
