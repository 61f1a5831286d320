// CMiniUnz: takes zip archives apart, for interactive use: it tells the user by message boxes.
//
// Entries are stored or deflated, plain or encrypted in the traditional way. Names are bytes and go to the
// system as they stand, `\` and `/` both separating. No entry is written outside the output folder: one whose
// name is absolute, names a drive, climbs with "..", is a link or leads through one, is refused with message
// message::unzipOpenFileFailed and the next is taken. A file takes its name, or replaces another, when all of
// its bytes are there and have the promised checksum. Data pass block by block, so an archive costs no memory
// beyond its directory and the copy in the memory stream. One archive at a time per thread.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"

class CMemoryStream;

class COREKIT_API CMiniUnz : public CObject {
    DECLARE_DYNAMIC(CMiniUnz)

public:
    CMiniUnz() = default;

    // Extracts the whole archive, or the entry `oneFile` (exact case), below outputPath, which must exist;
    // null or empty is the current folder. Folders inside the archive are made as they come, which is
    // reported by message::unzipCreatingFolder for each that has an entry of its own.
    //   bToMemory       no files are made
    //   memory          gets a copy of all contents, one after the other, in either case
    //   bWithoutPath    entries lose their folders
    //   bOverwrite      0 asks before a file is replaced (message::unzipOverwrite)
    //   password        for encrypted entries; may be null
    // False if there is no such archive or entry. Of a whole archive it is true otherwise: failures are
    // reported by boxes with a stop sign, and one inside an entry's data ends the run. Only the memory stream
    // throws.
    bool unzip(bool bToMemory, CMemoryStream& memory, const char* zipName, const char* oneFile,
               const char* outputPath, int bWithoutPath, int bOverwrite, const char* password);
};
