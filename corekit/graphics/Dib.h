// CDib: one uncompressed device-independent bitmap in memory.
//
// A header block (40 bytes and the colour table) and a pixel block, both from the safe allocation functions
// and owned by the object; no bitmap of the window system is behind it. Reading, writing and copying need no
// display; drawing and loading from resources are in the window library. Failures throw CChainedException; a
// load that throws leaves the object as it was or empty. One thread at a time.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/framework/Geometry.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/GdiBitmaps.h"

#include <cstdlib>

class CDC;
class CMemoryStream;

class COREKIT_API CDib : public CObject {
    DECLARE_DYNAMIC(CDib)

public:
    CDib() = default; // not valid: no header, no pixels, sizes 0
    ~CDib() override;
    CDib(const CDib&) = delete;
    CDib& operator=(const CDib&) = delete;

    // Frees both blocks; the two sizes keep their values.
    void Empty();
    // Whether there is a picture.
    bool IsValid() const { return m_info && m_data; }
    // In pixels. Above 0 also for a top-down bitmap; 0 without a header.
    int GetBitmapWidth() const { return m_info ? std::abs(m_info->bmiHeader.biWidth) : 0; }
    int GetBitmapHeight() const { return m_info ? std::abs(m_info->bmiHeader.biHeight) : 0; }
    SIZE GetSize() const { return {GetBitmapWidth(), GetBitmapHeight()}; }

    // A copy with blocks of its own; of an object that is not valid an empty one, with the sizes of before.
    void CopyFrom(const CDib& other);

    // ---- Files and memory ------------------------------------------------------------------------
    // Headers of 40 and of 12 bytes. message::bitmapUnreadable for what cannot be read, is no bitmap or ends
    // within the header or its colours, message::bitmapCompressed for a compressed one. Pixels that are
    // missing at the end are 0; a size that is out of proportion to what is there is unreadable, too.
    void LoadDIBFile(const char* path);
    // Take a copy of a whole file, and of one without its first 14 bytes. `size` is in bytes and bounds
    // what is read, whatever the headers claim.
    void AttachDIBFileData(const BYTE* data, DWORD size);
    void AttachDIBData(const BYTE* data, DWORD size);
    // Takes size and depth from the header, a colour table of zeros, and a copy of width * bits / 8 *
    // height bytes of pixels. message::bitmapUnreadable for a null pointer or a depth other than 1, 4, 8,
    // 16, 24 and 32.
    void LoadGlimmerViewBitmap(BITMAPINFO* info, BYTE* pixels);
    // Replaces the file of that name. message::bitmapCreateFailed if it cannot be made or written.
    void SaveDIBFile(const char* path) const;

    void SaveDIBFileToStream(CMemoryStream& stream) const; // writes nothing

    // Version 1.00, then size and bytes of each block. Reading is for a new object: message::invalidVersion
    // for another version, bitmapCompressed and bitmapUnreadable for what is no picture, and what the
    // stream throws. An object that is not valid is written as two sizes of 0.
    void ReadStream(CStream& stream);
    void WriteStream(CStream& stream) const;

    // Coordinates are pixels of the context's mapping; nothing is drawn by an object that is not valid. The
    // source rectangle counts from the first row in memory, so from the lower left corner unless the bitmap
    // is top-down.
    void DrawBitmap(HDC dc, const CRect& source, CPoint at) const;
    void DrawBitmap(HDC dc, CPoint at) const;            // all of it
    void StretchBitmap(HDC dc, const CRect& dest) const; // all of it
    // The row at which the source begins is its right edge, which callers rely on.
    void StretchBitmap(HDC dc, const CRect& source, const CRect& dest) const;
    // From the bitmap resource of that number, in its own depth. message::bitmapUnreadable if there is none.
    void LoadBitmapResource(UINT id, CDC& dc);

    // Header and colour table, and the rows in the order in which they came; null for an object that is not
    // valid. Good until the object is next changed.
    const BITMAPINFO* GetBitmapInfo() const { return m_info; }
    const BYTE* GetBitmapData() const { return m_data; }

    DWORD GetInfoSize() const { return m_infoSize; } // bytes of header and colour table
    // Bytes of pixels as they are stored; the block holds at least every padded row.
    DWORD GetDataSize() const { return m_dataSize; }

private:
    class Source;
    class FileSource;
    class MemorySource;

    static BITMAPINFO* RetreiveBitmapInfo(BYTE* header);
    static DWORD DIBNumColors(BYTE* header);
    void ReadImage(Source& source);
    // Owns the two blocks from now on, in place of those before.
    void Take(BITMAPINFO* info, DWORD infoSize, BYTE* data, DWORD dataSize);
    DWORD BlockSize() const; // bytes that the pixel block has at least

    DWORD m_infoSize = 0;
    DWORD m_dataSize = 0;
    BITMAPINFO* m_info = nullptr;
    BYTE* m_data = nullptr;
};
