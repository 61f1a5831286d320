// COleStream: one stream of a compound file, with the wire form of every other stream.
//
// It comes out of a COleFile and is deleted by the caller. Like a file stream it is seen through the page of
// 65536 bytes that the position lies in; a changed page goes to the file when the position leaves it, at
// every read, and at Flush. Nothing else writes it: Flush, then delete the stream, then Commit the file.
#pragma once

#include "corekit/stores/PagedStream.h"

class IStream;

// One thread at a time. Positions and sizes are in bytes, below 4 GiB. Failures throw CChainedException
// with messages of the oleStream group over the system's reason.
class COREKIT_API COleStream : public corekit::detail::PagedStream {
    DECLARE_DYNAMIC(COleStream)

public:
    // Without flushing: what was not stored is lost.
    ~COleStream() override;

    // At once, without waiting for Flush; message::oleStreamSetSizeFailed.
    void SetEndOfStream() override;

protected:
    void InternalRead(void* buffer, DWORD count) override;
    void InternalWrite(const void* buffer, DWORD count) override;

private:
    friend class COleFile;

    COleStream();
    // Starts at position 0. Owns the interface unless this throws.
    void AttachStream(IStream* stream);
    void LoadPage(DWORD base, BYTE* page, DWORD count) override;
    void StorePage(DWORD base, const BYTE* page, DWORD count) override;
    void MoveCursor(DWORD position); // of the interface, not of the stream

    IStream* m_pStream = nullptr; // owned
};
