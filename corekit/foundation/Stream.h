// CStream: a stream of bytes, and the one wire form that typed values have in every stream.
//
// A concrete stream supplies the eight virtual operations. The typed layer above them is fixed. On the wire
// integers are little-endian, nothing is padded or aligned, and nothing tells the type of a value: a reader
// must know the sequence. Positions and sizes are 32-bit bytes.
//
// Every failure throws a CChainedException. A stream belongs to one thread at a time.
//
//     stream.write_uint16(2);
//     stream.Write(u"Good evening");
//     stream.SeekToPos(0);
//     const WORD count = stream.read_uint16();
//     StringW title;
//     stream.Read(title);
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
    // Both throw when not all `count` bytes could be moved; where the position is then is up to the stream.
    virtual void InternalWrite(const void* buffer, DWORD count) = 0;

public:
    // What a concrete stream cannot do it refuses with an exception of its own number.
    virtual void SeekToPos(DWORD position) = 0; // from the start, at most the size
    virtual DWORD GetSize() = 0;                // in bytes
    virtual void Flush() = 0;                   // hands what is buffered to the system
    virtual void Skip(int count) = 0;           // relative, may be negative
    virtual DWORD GetCurrentPos() = 0;          // bytes from the start
    virtual void SetEndOfStream() = 0;          // the position becomes the size

    // Bytes as they are. A count of 0 is allowed.
    void Read(void* buffer, DWORD count) { InternalRead(buffer, count); }
    void Write(const void* buffer, DWORD count) { InternalWrite(buffer, count); }

    // --- integers, in as many bytes as their name says

    // Little-endian; the names with Windows types and those with sizes write the same bytes.
    void write_uint8(BYTE value) { Put(value); }
    void write_int8(signed char value) { Put(value); }
    void write_WORD(WORD value) { Put(value); } // 2 bytes
    void write_uint16(WORD value) { Put(value); }
    void write_int16(SHORT value) { Put(value); }
    void write_DWORD(DWORD value) { Put(value); } // 4 bytes
    void write_uint32(DWORD value) { Put(value); }
    void write_int32(LONG value) { Put(value); }
    void write_uint64(DWORDLONG value) { Put(value); }
    void write_int64(LONGLONG value) { Put(value); }
    void write_bool(bool value) { Put(static_cast<BYTE>(value)); } // one byte, 0 or 1

    // Each reads what the operation of the same name wrote. A stream that ends within a value throws.
    BYTE read_uint8() { return Get<BYTE>(); }
    signed char read_int8() { return Get<signed char>(); }
    WORD read_WORD() { return Get<WORD>(); } // 2 bytes
    WORD read_uint16() { return Get<WORD>(); }
    SHORT read_int16() { return Get<SHORT>(); }
    DWORD read_DWORD() { return Get<DWORD>(); } // 4 bytes
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
        const auto length = static_cast<WORD>(corekit::detail::textLength(text));
        Put(length);
        InternalWrite(text, length * DWORD{sizeof(WCHAR)});
    }
    void Write(const char* text); // null is empty
    void Read(StringW& text);     // left empty when the stream ends within the text
    // A unit that the code page does not have is read as its stand-in; the text ends at its first zero.
    void Read(StringA& text);
    void Read(CString& text); // the same as CString

    // The characters alone, bytes or UTF-16 units, with no length in front: the reader must know how many
    // there are. A length below 0 means up to the terminator, which is not written.
    void WriteStringRaw(const char* text, int length);
    void WriteStringRaw(const WCHAR* text, int length); // two bytes a unit

    // --- structures: their members in order, 32 bits each

    void Write(const _GUID& guid) { Put(guid); }    // 16 bytes as in memory
    void Read(_GUID& guid) { guid = Get<_GUID>(); } // 16 bytes
    // x, then y.
    void Write(CPoint point) { Put<POINT>(point); }
    void Read(CPoint& point) { point = Get<POINT>(); } // 8 bytes
    // Left, top, right, bottom.
    void Write(const CRect& rect) { Put<RECT>(rect); }
    void Read(CRect& rect) { rect = Get<RECT>(); } // 16 bytes
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

    // A byte of the wire for each byte.
    void Write(const CByteArray& array);
    void Read(CByteArray& array);
    // Texts, each with its 16-bit length in front.
    void Write(const CStringArray& array);
    void Read(CStringArray& array);
    // The same as arrays of the other two string classes; all three read what any of them wrote.
    void Write(const CArray<StringA, const char*>& array);
    void Read(CArray<StringA, const char*>& array);
    void Write(const CArray<StringW, const WCHAR*>& array);
    void Read(CArray<StringW, const WCHAR*>& array);

    // --- copies of count bytes from the source's position to this stream's

    // By the 4 KiB. A source that ends early throws its own exception; what was copied until then stays.
    void CopyFromStream(CStream& source, DWORD count);
    // From the file's position. A file that ends early is message::streamFileReadFailed over the system's
    // reason.
    void CopyFromFile(HANDLE file, DWORD count);
    // The file from its start, whatever its position was. For files below 4 GiB, as streams themselves.
    void CopyEntireFile(HANDLE file);

private:
    static_assert(std::endian::native == std::endian::little, "values go to the wire as they lie in memory");

    // Moves a value as it lies in memory.
    template <class T>
    void Put(T value) // in as many bytes as it has
    {
        InternalWrite(&value, sizeof value);
    }
    template <class T>
    T Get() // throws where the stream ends
    {
        T value;
        InternalRead(&value, sizeof value);
        return value;
    }

    DWORD Remaining(); // bytes from the position to the end
    // The count, then the elements. Reading makes room for what the rest of the stream can hold and no
    // more, so that a false count costs no memory.
    template <class Array>
    void PutTexts(const Array& array);
    template <class Text, class Array>
    void GetTexts(Array& array);
};
