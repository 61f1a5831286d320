// What threads do with windows: the window library installs it when it is loaded. Without it a thread that
// runs has nothing to wait for and ends.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CWinThread;
struct tagMSG;

namespace corekit {

// The calls are made on the thread that they are for; CWinThread's operations of these names describe them.
struct ThreadWindows {
    int (*run)(CWinThread& thread); // until the end is asked for; its exit code
    BOOL (*pump)(CWinThread& thread);
    BOOL (*preTranslate)(CWinThread& thread, tagMSG* message);
    BOOL (*idle)(CWinThread& thread, LONG count);
    void (*waitCursor)(int change); // +1 shows it, -1 takes it back, 0 puts it on again
};
// Any thread; the table must stay until another one is set. Null: there are no windows.
COREKIT_API void setThreadWindows(const ThreadWindows* windows);

namespace detail {
const ThreadWindows* threadWindows();
} // namespace detail

} // namespace corekit
