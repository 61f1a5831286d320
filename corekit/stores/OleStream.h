// COleStream: one stream of a compound file, with the wire form of every other stream.
//
// It comes out of a COleFile and is deleted by the caller. Like a file stream it is seen through the page of
// 65536 bytes that the position lies in; a changed page goes to the file when the position leaves it, at
// every read, and at Flush. Nothing else writes it: Flush, then delete the stream, then Commit the file.
#pragma once

#include "corekit/stores/PagedStream.h"

class IStream;

class COREKIT_API COleStream : public corekit::detail::PagedStream {
    DECLARE_DYNAMIC(COleStream)

public:
    ~COleStream() override; // without flushing

    void SetEndOfStream() override;

protected:
    void InternalRead(void* buffer, DWORD count) override;
    void InternalWrite(const void* buffer, DWORD count) override;

private:
    friend class COleFile;

    COleStream();
    // Owns the interface unless this throws.
    void AttachStream(IStream* stream);
    void LoadPage(DWORD base, BYTE* page, DWORD count) override;
    void StorePage(DWORD base, const BYTE* page, DWORD count) override;
    void MoveCursor(DWORD position);

    IStream* m_pStream = nullptr;
};
