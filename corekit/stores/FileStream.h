// CFileStream: a file behind a cache of one page.
//
// The file is seen through the aligned page of 65536 bytes that the position lies in, so many small reads and
// writes cost a copy each. A page that was written to goes to the file when the position leaves it, at every
// read, and at Flush. Nothing else writes it: Flush, then Close, or the last page is lost. Files reach up to
// 4 GiB less a byte: for a larger one Open and AttachFile throw message::fileSetPositionFailed over error
// 223, and what was open before stays open; a write that would make it larger throws message::fileWriteFailed
// over the same, with nothing written.
//
// Failures throw CChainedException. When the file refuses a transfer, the position stays where the transfer
// had come to, and a page that could not be written or loaded is tried again by the next operation that needs
// it.
#pragma once

#include "corekit/stores/PagedStream.h"

class COREKIT_API CFileStream : public corekit::detail::PagedStream {
    DECLARE_DYNAMIC(CFileStream)

public:
    CFileStream();
    ~CFileStream() override; // closes

    // Opens by the rules of CreateFileA; without FILE_FLAG_RANDOM_ACCESS it is told to expect sequential
    // access. 0 when the file cannot be opened; the last error tells why. What was open before is closed.
    BOOL Open(const char* name, DWORD access, DWORD share, DWORD disposition, DWORD flags);
    // Takes over an open file at position 0. Always 1.
    BOOL AttachFile(HANDLE file);
    void Close();          // without flushing
    HANDLE DetachHandle(); // the file goes to the caller, without flushing

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    const CString& GetFilename() const { return m_name; } // as given to Open
    bool IsEOF() const { return m_position == m_size; }

    void SetEndOfStream() override;

private:
    void LoadPage(DWORD base, BYTE* page, DWORD count) override;
    void StorePage(DWORD base, const BYTE* page, DWORD count) override;
    void MoveFilePointer(DWORD position);

    HANDLE m_file = INVALID_HANDLE_VALUE;
    CString m_name;
};
