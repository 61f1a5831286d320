// Saving what can be read of a damaged record file.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <functional>
#include <vector>

// The numbers of the records by what became of them, each list ascending.
struct RecordFileSalvage {
    std::vector<int> sound; // copied, and nothing before them has any of their sectors
    std::vector<int>
        doubtful;          // copied, but not aligned or on sectors of another: the bytes may not be theirs
    std::vector<int> lost; // outside of the file, or doubtful past the bound
};

// Copies every record that can be read under its number into a new, sound file `target`; `source` is only
// read. It needs the source's magic, a usable sector size and an index inside of the file; index entries and
// records that lie outside of it are lost. All doubtful records together may fill as many bytes as the source
// has.
//
// `progress`, if any, hears how many of how many numbers are done.
//
// Throws CChainedException, and leaves no target, if the source cannot be opened or is no record file, or the
// target exists or cannot be written.
COREKIT_API RecordFileSalvage SalvageRecordFile(
    const char* source, const char* target, const std::function<void(int done, int total)>& progress = {});
