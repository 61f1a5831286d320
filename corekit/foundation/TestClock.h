// A clock for tests.
//
// While one exists the library's time is the one told here: time_GetCurrentTime and all that goes by it, such
// as log lines and the days of log files. It stands still until it is moved. Waits take as long as ever.
#pragma once

#include "corekit/platform/Export.h"

// One at a time. Any thread may move it, and all see it at once.
class COREKIT_API CTestClock {
public:
    // Local time, from 1970 to 2038.
    CTestClock(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    ~CTestClock();
    CTestClock(const CTestClock&) = delete;
    CTestClock& operator=(const CTestClock&) = delete;

    // Also back.
    void Advance(long seconds);
};
