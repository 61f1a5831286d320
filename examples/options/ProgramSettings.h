// What this program remembers from one run to the next, in the user's registry.
#pragma once

#include "corekit/devices/SerialPortConfig.h"
#include "corekit/logging/LogTarget.h"

struct ProgramSettings {
    int codePage = 1252; // of texts that are read
    int logEnabled = 1;
    unsigned long logMask = 2 * logCriticalError - 1; // all levels
    int logDays = 20;
    CSerialPortConfig handControl; // the line on which the operator's buttons hang

    void Load(); // what is not there keeps its value
    void Save();
    void ApplyTo(CLogTarget& log) const;
};
