// The table of all windows, and the loop of the thread that runs the window toolkit.
//
// A window is known here by its thread, by what takes its messages, and by what the window library keeps
// behind it. Its posted messages wait with all others of the thread; the toolkit's loop is told that one came
// and takes it when its turn comes.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Messages.h"

#include <functional>
#include <memory>

namespace corekit {

using WindowProcedure = std::function<LRESULT(const MSG&)>;

// A window of the calling thread. What stands behind it stays until it is closed.
COREKIT_API HWND openWindow(WindowProcedure procedure, std::shared_ptr<void> behind = nullptr);
// What stands behind a window of the calling thread; null for any other value.
COREKIT_API const std::shared_ptr<void>* windowBehind(HWND window);
// Takes its posted messages along.
COREKIT_API void closeWindow(HWND window);

// How a thread lets another loop work in place of its own waiting. Both belong to one thread.
struct OuterLoop {
    void (*wake)();           // any thread: a message has been posted to the loop's thread
    void (*work)(bool block); // the loop's thread: deals with what waits there; `block`: waits for something
};
// For the calling thread, as long as it lives.
COREKIT_API void setOuterLoop(const OuterLoop& loop);
// The next message that was posted to the calling thread; false if there is none.
COREKIT_API bool takePosted(MSG& message);
COREKIT_API bool hasPosted();

} // namespace corekit
