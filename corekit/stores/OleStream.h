// COleStream: one stream of a compound file, with the wire form of every other stream.
//
// It comes out of a COleFile and is deleted by the caller. Like a file stream it is seen through the page of
// 65536 bytes that the position lies in; a changed page goes to the file when the position leaves it, at
// every read, and at Flush. Nothing else writes it: Flush, then delete the stream, then Commit the file.
#pragma once

#include "corekit/foundation/Stream.h"

#include <memory>

class IStream;

class COREKIT_API COleStream : public CStream {
    DECLARE_DYNAMIC(COleStream)

public:
    ~COleStream() override; // without flushing

    void SeekToPos(DWORD position) override;
    DWORD GetSize() override;
    void Flush() override;
    void Skip(int count) override;
    DWORD GetCurrentPos() override;
    void SetEndOfStream() override;

protected:
    void InternalRead(void* buffer, DWORD count) override;
    void InternalWrite(const void* buffer, DWORD count) override;

private:
    friend class COleFile;
    static constexpr DWORD pageSize = 65536;
    static constexpr DWORD noPage = 1; // a base that no page has

    static constexpr DWORD BaseOf(DWORD position) { return position & ~(pageSize - 1); }

    COleStream() = default;
    // Owns the interface unless this throws.
    void AttachStream(IStream* stream);
    void UpdateCache();
    void FlushCache();
    void MoveCursor(DWORD position);

    IStream* m_pStream = nullptr;
    std::unique_ptr<BYTE[]> m_page;
    DWORD m_base = noPage;
    DWORD m_position = 0;
    DWORD m_size = 0;
    BOOL m_isDirty = FALSE;
};
