// CMappedFile: a whole file seen as memory.
//
// The view is good until the next ExtendFile or Close; what is written to it is in the file. Files are opened
// for this object alone and have less than 4 GiB. One thread at a time. The system ends a process that looks
// at a page which somebody else has cut off the file; programs that use this library are kept from doing so.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Files.h"

class COREKIT_API CMappedFile : public CObject {
    DECLARE_DYNAMIC(CMappedFile)

public:
    CMappedFile() = default;
    ~CMappedFile() override; // closes

    // Each of the first two closes what was open. 0 on failure, with the reason as last error.

    // Makes a file of that many bytes, all zeros, open for writing; 0 also if it exists, and for a size of
    // 0. Nothing is left behind by a failure.
    int CreateFileA(const char* name, DWORD size);
    // All of a file; for reading only with bWrite 0, where a write to the view ends the process. 0 also for
    // an empty file.
    int OpenFile(const char* name, int bWrite);
    // Takes over an open file, which must allow what bWrite asks, and which after a failure is still the
    // caller's. The object is expected to be closed.
    int AttachOpenFile(HANDLE file, int bWrite);

    void Close(); // with a Flush
    void EnsureClosed()
    {
        if (IsOpen()) Close();
    }
    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }

    DWORD GetSize() const { return m_size; }
    void* GetViewBase() const { return m_base; } // null when closed
    // Offset in bytes; not checked against the size.
    void* GetViewOffset(DWORD offset) const { return static_cast<BYTE*>(m_base) + offset; }

    // Makes the file at least that big, the new part zeros. The view moves. 0 on failure; then there is no
    // view until RestoreView or a new open.
    int ExtendFile(DWORD newSize);
    // Views the file again at the size that it had before a failed ExtendFile.
    int RestoreView();
    // Returns when what was written is on the device; 0 if that failed or nothing is open.
    int Flush();

private:
    int MakeView(HANDLE file, bool writable, DWORD size);

    HANDLE m_file = INVALID_HANDLE_VALUE;
    void* m_base = nullptr;
    bool m_writable = false;
    DWORD m_size = 0;
};
