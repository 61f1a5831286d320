// The check of a record file: every sector must belong to exactly one of header, index, map, record or free
// space.
#pragma once

#include "corekit/stores/RecordFileSpace.h"

namespace corekit::detail {

class RecordFileChecker {
public:
    struct Manner {
        bool print = false;   // lines of level 0
        bool verbose = false; // and with it all others
        bool repair = false;
    };

    RecordFileChecker(RecordFileImage& image, RecordFileSpace& space);

    // Opens the file, of which none may be open, and closes it unless a fault ends the check early. 1 if it
    // was sound.
    int Check(const char* name, const Manner& manner);

    void Print(int level, const char* text) const;
    void Print(int level, const WCHAR* text) const;
    // 0 for a sector that is marked already or lies outside of the file; a range stops at the first of those.
    int SetInUse(int sector);
    int SetInUse(DWORD offset, DWORD size);
    void FreeInUse(int sector);
    void FreeInUse(DWORD offset, DWORD size);
    bool IsAligned(DWORD offset) const { return offset % Header().sectorSize == 0; }

private:
    // What the passes have found so far.
    struct Findings {
        int result = 1;
        bool fault = false;   // in the map
        bool rebuild = false; // the map has to move
        bool indexChanged = false;
        DWORD mapSectors = 0; // that the map's area has marked for itself
    };

    RecordFileHeader& Header() { return m_image.Header(); }
    const RecordFileHeader& Header() const { return m_image.Header(); }
    CArray<VLRExtent>& List() { return m_space.List(); }
    DWORD AreaBytes(DWORD sectors) const;
    DWORD CountUnmarked(DWORD offset, DWORD sectors) const;
    void PrintFormat(int level, const char* format, ...) const __attribute__((format(printf, 3, 4)));
    void Sorry() const;
    bool Open(const char* name);
    void PrintHeader() const;
    bool CheckHeaderPossible();
    bool CheckAreaSize(const char* area, DWORD entries, DWORD sectors) const;
    bool CheckHeader();
    bool CheckAreas(Findings& found);
    bool CheckRecords(Findings& found);
    bool CheckRecord(int record, Findings& found);
    void CheckMap(Findings& found);
    void CheckLostSectors(Findings& found);
    void RebuildMap(const Findings& found);
    void WriteBack(const Findings& found);
    void Close();

    RecordFileImage& m_image;
    RecordFileSpace& m_space;
    Manner m_manner;
    CByteArray m_inUse; // a byte for each sector
};

} // namespace corekit::detail
