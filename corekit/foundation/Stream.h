// CStream: a stream of bytes, and the one wire form that typed values have in every stream.
//
// A concrete stream supplies the eight virtual operations. The typed layer above them is fixed. On the wire
// integers are little-endian, nothing is padded or aligned, and nothing tells the type of a value: a reader
// must know the sequence. Positions and sizes are 32-bit bytes.
//
// Every failure throws a CChainedException. A stream belongs to one thread at a time.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Geometry.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <bit>

class COREKIT_API CStream : public CObject {
    DECLARE_DYNAMIC(CStream)

protected:
    // Read or write exactly count bytes at the position and advance it.
    virtual void InternalRead(void* buffer, DWORD count) = 0;
    virtual void InternalWrite(const void* buffer, DWORD count) = 0;

public:
    virtual void SeekToPos(DWORD position) = 0; // from the start, at most the size
    virtual DWORD GetSize() = 0;
    virtual void Flush() = 0;
    virtual void Skip(int count) = 0; // relative, may be negative
    virtual DWORD GetCurrentPos() = 0;
    virtual void SetEndOfStream() = 0; // the position becomes the size

    void Read(void* buffer, DWORD count) { InternalRead(buffer, count); }
    void Write(const void* buffer, DWORD count) { InternalWrite(buffer, count); }

    // --- integers, in as many bytes as their name says

    void write_uint8(BYTE value) { Put(value); }
    void write_int8(signed char value) { Put(value); }
    void write_WORD(WORD value) { Put(value); }
    void write_uint16(WORD value) { Put(value); }
    void write_int16(SHORT value) { Put(value); }
    void write_DWORD(DWORD value) { Put(value); }
    void write_uint32(DWORD value) { Put(value); }
    void write_int32(LONG value) { Put(value); }
    void write_uint64(DWORDLONG value) { Put(value); }
    void write_int64(LONGLONG value) { Put(value); }
    void write_bool(bool value) { Put(static_cast<BYTE>(value)); } // one byte, 0 or 1

    BYTE read_uint8() { return Get<BYTE>(); }
    signed char read_int8() { return Get<signed char>(); }
    WORD read_WORD() { return Get<WORD>(); }
    WORD read_uint16() { return Get<WORD>(); }
    SHORT read_int16() { return Get<SHORT>(); }
    DWORD read_DWORD() { return Get<DWORD>(); }
    DWORD read_uint32() { return Get<DWORD>(); }
    LONG read_int32() { return Get<LONG>(); }
    DWORDLONG read_uint64() { return Get<DWORDLONG>(); }
    LONGLONG read_int64() { return Get<LONGLONG>(); }
    bool read_bool() { return Get<BYTE>() != 0; } // whatever is not 0 is true

    // --- text: a 16-bit length, then as many UTF-16 units, without a terminator
    //
    // Of a longer text the length modulo 65536 is written and read, so 65535 units are the most. Narrow text
    // passes through the active code page; what that does not have is lost.

    void Write(const WCHAR* text) // not null
    {
        const auto length = static_cast<WORD>(corekit::detail::TextLength(text));
        Put(length);
        InternalWrite(text, length * DWORD{sizeof(WCHAR)});
    }
    void Write(const char* text); // null is empty
    void Read(StringW& text);     // left empty when the stream ends within the text
    void Read(StringA& text);
    void Read(CString& text);

    // The characters alone. A length below 0 means up to the terminator, which is not written.
    void WriteStringRaw(const char* text, int length);
    void WriteStringRaw(const WCHAR* text, int length);

    // --- structures: their members in order, 32 bits each

    void Write(const _GUID& guid) { Put(guid); } // 16 bytes as in memory
    void Read(_GUID& guid) { guid = Get<_GUID>(); }
    void Write(CPoint point) { Put<POINT>(point); }
    void Read(CPoint& point) { point = Get<POINT>(); }
    void Write(const CRect& rect) { Put<RECT>(rect); }
    void Read(CRect& rect) { rect = Get<RECT>(); }
    // The low 16 bits of each member, which read back as 0 to 65535.
    void Write(CSize size)
    {
        Put(MAKELONG(LOWORD(static_cast<DWORD>(size.cx)), LOWORD(static_cast<DWORD>(size.cy))));
    }
    void Read(CSize& size)
    {
        const DWORD both = Get<DWORD>();
        size = CSize(LOWORD(both), HIWORD(both));
    }

    // --- arrays: a 32-bit count, then the elements
    //
    // Reading empties the array first. When the stream ends early, the array holds the elements that were
    // read.

    void Write(const CByteArray& array);
    void Read(CByteArray& array);
    void Write(const CStringArray& array);
    void Read(CStringArray& array);
    void Write(const CArray<StringA, const char*>& array);
    void Read(CArray<StringA, const char*>& array);
    void Write(const CArray<StringW, const WCHAR*>& array);
    void Read(CArray<StringW, const WCHAR*>& array);

    // --- copies of count bytes from the source's position to this stream's

    void CopyFromStream(CStream& source, DWORD count);
    void CopyFromFile(HANDLE file, DWORD count); // a file that ends early is a failure
    void CopyEntireFile(HANDLE file);

private:
    static_assert(std::endian::native == std::endian::little, "values go to the wire as they lie in memory");

    template <class T>
    void Put(T value)
    {
        InternalWrite(&value, sizeof value);
    }
    template <class T>
    T Get()
    {
        T value;
        InternalRead(&value, sizeof value);
        return value;
    }

    DWORD Remaining();
    template <class Array>
    void PutTexts(const Array& array);
    template <class Text, class Array>
    void GetTexts(Array& array);
};
