#include "corekit/foundation/Stream.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/TextConversion.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/resources/Messages.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CStream, CObject)

namespace {

// Cuts an array to what has been read into it, also when reading it fails.
template <class Array>
struct CutToRead {
    Array& array;
    int read = 0;
    explicit CutToRead(Array& cut) : array(cut) {}
    ~CutToRead() { array.SetSize(read); }
    CutToRead(const CutToRead&) = delete;
    CutToRead& operator=(const CutToRead&) = delete;
};

// All bytes of a text in the code page, also where they are more than its units.
std::string readNarrow(CStream& stream)
{
    StringW wide;
    stream.Read(wide);
    return corekit::detail::narrowText({wide, static_cast<std::size_t>(wide.GetLength())});
}

} // namespace

void CStream::Write(const char* text) { Write(static_cast<const WCHAR*>(StringW(text))); }

void CStream::Read(StringW& text)
{
    const int length = read_uint16();
    try {
        InternalRead(text.GetBuffer(length + 1), static_cast<DWORD>(length) * sizeof(WCHAR));
    } catch (...) {
        text.ReleaseBuffer(0);
        text.Empty();
        throw;
    }
    text.ReleaseBuffer(length);
}

void CStream::Read(StringA& text) { text = readNarrow(*this).c_str(); }
void CStream::Read(CString& text) { text = readNarrow(*this).c_str(); }

void CStream::WriteStringRaw(const char* text, int length)
{
    if (length < 0) length = corekit::detail::countedLength(corekit::detail::textLength(text));
    InternalWrite(text, static_cast<DWORD>(length));
}

void CStream::WriteStringRaw(const WCHAR* text, int length)
{
    if (length < 0) length = corekit::detail::countedLength(corekit::detail::textLength(text));
    DWORD left = static_cast<DWORD>(length);
    constexpr DWORD mostAtOnce = 0x40000000; // units, whose bytes a count still holds
    for (; left > mostAtOnce; left -= mostAtOnce, text += mostAtOnce) {
        InternalWrite(text, mostAtOnce * sizeof(WCHAR));
    }
    InternalWrite(text, left * DWORD{sizeof(WCHAR)});
}

DWORD CStream::Remaining()
{
    const DWORD size = GetSize(), position = GetCurrentPos();
    return position < size ? size - position : 0;
}

void CStream::Write(const CByteArray& array)
{
    write_uint32(static_cast<DWORD>(array.GetSize()));
    InternalWrite(array.GetData(), static_cast<DWORD>(array.GetSize()));
}

void CStream::Read(CByteArray& array)
{
    array.RemoveAll();
    const DWORD count = read_uint32();
    CutToRead read(array);
    // Room is made for what the stream has; what it promises beyond is believed when it comes.
    DWORD next = std::min(count, Remaining());
    while (static_cast<DWORD>(read.read) < count) {
        const DWORD size = static_cast<DWORD>(read.read) + std::max<DWORD>(next, 1);
        if (size > INT_MAX) AfxThrowMemoryException();
        array.SetSize(static_cast<int>(size));
        InternalRead(array.GetData() + read.read, size - static_cast<DWORD>(read.read));
        read.read = static_cast<int>(size);
        next = std::min<DWORD>(4096, count - size);
    }
}

template <class Array>
void CStream::PutTexts(const Array& array)
{
    write_uint32(static_cast<DWORD>(array.GetSize()));
    for (int i = 0; i < array.GetSize(); ++i) Write(array[i]);
}

template <class Text, class Array>
void CStream::GetTexts(Array& array)
{
    array.RemoveAll();
    const DWORD count = read_uint32();
    CutToRead read(array);
    // The shortest element is its length.
    array.SetSize(static_cast<int>(std::min(count, Remaining() / DWORD{sizeof(WORD)})));
    for (DWORD i = 0; i < count; ++i) {
        if (read.read == array.GetSize()) {
            Text text;
            Read(text);
            array.SetAtGrow(read.read, text);
        } else {
            Read(array[read.read]);
        }
        ++read.read;
    }
}

void CStream::Write(const CStringArray& array) { PutTexts(array); }
void CStream::Read(CStringArray& array) { GetTexts<CString>(array); }
void CStream::Write(const CArray<StringA, const char*>& array) { PutTexts(array); }
void CStream::Read(CArray<StringA, const char*>& array) { GetTexts<StringA>(array); }
void CStream::Write(const CArray<StringW, const WCHAR*>& array) { PutTexts(array); }
void CStream::Read(CArray<StringW, const WCHAR*>& array) { GetTexts<StringW>(array); }

void CStream::CopyFromStream(CStream& source, DWORD count)
{
    BYTE buffer[4096];
    while (count) {
        const DWORD n = std::min<DWORD>(count, sizeof buffer);
        source.InternalRead(buffer, n);
        InternalWrite(buffer, n);
        count -= n;
    }
}

void CStream::CopyFromFile(HANDLE file, DWORD count)
{
    BYTE buffer[16384];
    while (count) {
        const DWORD n = std::min<DWORD>(count, sizeof buffer);
        DWORD moved = 0;
        if (!ReadFile(file, buffer, n, &moved, nullptr) || moved != n) {
            ThrowChainedException(GetLastErrorException(), message::streamFileReadFailed);
        }
        InternalWrite(buffer, n);
        count -= n;
    }
}

void CStream::CopyEntireFile(HANDLE file)
{
    if (SetFilePointer(file, 0, nullptr, FILE_BEGIN) != 0) {
        ThrowChainedException(GetLastErrorException(), message::streamFileReadFailed);
    }
    DWORD high = 0;
    const DWORD size = GetFileSize(file, &high);
    if (high != 0) // more than any stream takes
        ThrowChainedException(GetLastErrorException(ERROR_FILE_TOO_LARGE), message::streamFileReadFailed);
    CopyFromFile(file, size);
}
