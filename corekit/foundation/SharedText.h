// What StringA and StringW have in common: a value string that shares its buffer until it is written to.
//
// A string object is one pointer, to the first character of a zero-terminated buffer. A header in front of
// the characters holds the reference count, the length and the capacity. Buffers are allocated to the exact
// size asked for, and nothing ever makes room in advance: reserve with GetBuffer before a loop of appends.
//
// Any number of threads may hold strings that share a buffer; one string object belongs to one thread at a
// time. A pointer to the characters lives until the string is next changed. Where an index, a start or a
// count lies outside the buffer, nothing outside of it is read or written. Exhausted memory throws
// std::bad_alloc.
#pragma once

#include "corekit/framework/FormatArgument.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Interlocked.h"
#include "corekit/platform/TextScan.h"
#include "corekit/platform/Types.h"

#include <atomic>
#include <compare>
#include <cstdarg>
#include <cstring>
#include <new>

namespace corekit::detail {

class FormatSource;

// What stands in front of the characters.
template <class Ch>
struct TextHeader {
    LONG nRefs;        // strings that share the buffer; below 0: locked, or the empty buffer
    LONG nDataLength;  // characters, without the terminator
    LONG nAllocLength; // room in characters, without the terminator

    Ch* data() { return reinterpret_cast<Ch*>(this + 1); }
};

// The one buffer of all empty strings of a width.
template <class Ch>
struct EmptyText {
    TextHeader<Ch> header{-1, 0, 0}; // never counted
    Ch terminator{};                 // what all of them point to
};
extern COREKIT_API EmptyText<char> emptyTextA;
extern COREKIT_API EmptyText<WCHAR> emptyTextW;

constexpr char* emptyCharacters(char) { return &emptyTextA.terminator; }
constexpr WCHAR* emptyCharacters(WCHAR) { return &emptyTextW.terminator; }

template <class Self, class Ch>
class COREKIT_API SharedText {
public:
    using Data = TextHeader<Ch>; // of this width

    int GetLength() const { return GetData()->nDataLength; }
    int GetAllocLength() const { return GetData()->nAllocLength; } // room, without the terminator
    bool IsEmpty() const { return GetLength() == 0; }              // by the length alone
    operator const Ch*() const { return m_pchData; }               // zero-terminated, never null

    // The character at an index; 0 outside the buffer.
    Ch GetAt(int index) const { return index >= 0 && index <= GetAllocLength() ? m_pchData[index] : Ch{}; }
    Ch operator[](int index) const { return GetAt(index); }

    // Replaces one character. The index is expected below the length; outside the buffer nothing happens.
    void SetAt(int index, Ch ch)
    {
        CopyBeforeWrite();
        if (index >= 0 && index < GetAllocLength()) m_pchData[index] = ch;
    }

    // Becomes the empty text. A locked buffer is kept.
    void Empty()
    {
        if (!IsEmptyBuffer()) Clear();
    }

    // Takes n characters from p, zeros included.
    void AssignCopy(int n, const Ch* p);

    // -1, 0 or 1, by unsigned code values up to the first zero.
    int Compare(const Ch* p) const { return compareText(m_pchData, p); }
    int CompareNoCase(const Ch* p) const; // the same with letter case folded; below, equal to or above 0
    int Collate(const Ch* p) const;       // by the order of the current locale; below, equal to or above 0

    // Index of a character or text at or behind `start`, -1 if there is none. The text ends at its first
    // zero, and a start outside the text finds nothing.
    int Find(Ch ch) const { return Find(ch, 0); } // zero finds the terminator
    int Find(Ch ch, int start) const;
    int Find(const Ch* text) const { return Find(text, 0); }
    int Find(const Ch* text, int start) const; // null is nowhere, the empty text at the start
    int FindOneOf(const Ch* set) const;        // the first character that is in the set
    // The last occurrence. Only the low 8 bits of the character are looked for, in both widths.
    int ReverseFind(Ch ch) const;

    // Parts. Each is a string with a buffer of its own; counts and starts are cut to what there is.
    Self Left(int n) const;                                       // the first n characters
    Self Right(int n) const;                                      // the last n
    Self Mid(int first) const { return Mid(first, GetLength()); } // from an index to the end
    Self Mid(int first, int n) const;
    Self SpanIncluding(const Ch* set) const; // the leading characters that are in the set
    Self SpanExcluding(const Ch* set) const; // the leading characters that are not

    void MakeUpper();   // by the current locale, in place
    void MakeLower();   // likewise, both up to the first zero
    void MakeReverse(); // up to the first zero
    void TrimLeft();    // drop white space; the buffer stays
    void TrimRight();   // both by the locale's white space

    // Loads a text of the string table. Always 1; an unknown number gives the empty string.
    BOOL LoadStringA(UINT id);

    // Replaces the string by formatted text, by the rules of printf; FormatArgument.h has the letters. The
    // arguments are numbers, characters, texts of either width and string objects, this one too. Room is
    // reserved in advance and not by the length of the result.
    template <Formattable... Args>
    void Format(const Ch* format, const Args&... args)
    {
        FormatList(format, listArguments(args...));
    }
    template <Formattable... Args>
    void Format(UINT id, const Args&... args) // the format is a text of the string table
    {
        Self format;
        format.LoadStringA(id);
        FormatList(format, listArguments(args...));
    }

    // Direct access. GetBuffer makes the buffer this string's own, with room for at least n characters; after
    // writing into it call ReleaseBuffer with the new length, or with -1 to take it from the terminator.
    Ch* GetBuffer(int n);
    void ReleaseBuffer(int n = -1);
    Ch* GetBufferSetLength(int n); // GetBuffer, with the length set to n at once
    void FreeExtra();              // gives back the room behind the length

    // A locked buffer is never shared: copies of the string get their own, and assignments go into it while
    // they fit.
    Ch* LockBuffer();    // the characters, also of a buffer made for it
    void UnlockBuffer(); // it may be shared again

    Data* GetData() const { return reinterpret_cast<Data*>(m_pchData) - 1; }

    // ==, !=, <, >, <=, >= of two strings, or of a string and a zero-terminated text, order like Compare.
    friend bool operator==(const Self& a, const Self& b)
    {
        return a.m_pchData == b.m_pchData || sameText(a.m_pchData, a.GetLength(), b.m_pchData, b.GetLength());
    }
    friend bool operator==(const Self& a, const Ch* b) { return a.Compare(b) == 0; }
    friend std::strong_ordering operator<=>(const Self& a, const Self& b) { return a.Compare(b) <=> 0; }
    friend std::strong_ordering operator<=>(const Self& a, const Ch* b) { return a.Compare(b) <=> 0; }

    friend const Ch* FormattedText(const SharedText& text) { return text.m_pchData; }

    friend Self operator+(const Self& a, const Self& b)
    {
        return Joined(a.GetLength(), a.m_pchData, b.GetLength(), b.m_pchData);
    }
    friend Self operator+(const Self& a, const Ch* b)
    {
        return Joined(a.GetLength(), a.m_pchData, SafeStrlen(b), b);
    }
    friend Self operator+(const Ch* a, const Self& b)
    {
        return Joined(SafeStrlen(a), a, b.GetLength(), b.m_pchData);
    }
    friend Self operator+(const Self& a, Ch b) { return Joined(a.GetLength(), a.m_pchData, 1, &b); }
    friend Self operator+(Ch a, const Self& b) { return Joined(1, &a, b.GetLength(), b.m_pchData); }

protected:
    constexpr SharedText() noexcept : m_pchData(emptyCharacters(Ch{})) {}
    SharedText(const SharedText& other) : m_pchData(other.m_pchData)
    {
        Data* data = GetData();
        if (RefsOf(data) >= 0) [[likely]] {
            InterlockedIncrement(&data->nRefs);
        } else {
            CopyOfLocked(other);
        }
    }
    SharedText(SharedText&& other) noexcept : m_pchData(other.m_pchData) { other.Init(); }
    SharedText(const Ch* p, int n) : SharedText()
    {
        if (n > 0) {
            AllocBuffer(n);
            std::memcpy(m_pchData, p, sizeof(Ch) * static_cast<std::size_t>(n));
        }
    }
    SharedText(Ch ch, int n);             // n below 1 is the empty text
    ~SharedText() { Release(GetData()); } // gives its share back
    SharedText& operator=(const SharedText& other);
    SharedText& operator=(SharedText&& other);

    void Init() { m_pchData = emptyCharacters(Ch{}); } // releases nothing
    void AllocBuffer(int n);      // a new buffer of exactly n characters; the old one is not released
    void AllocBeforeWrite(int n); // an unshared buffer with room for n; the text may be lost
    void CopyBeforeWrite()        // an unshared buffer with the same text
    {
        if (RefsOf(GetData()) >= 2) CopyShared();
    }
    void CopyShared(); // leaves the buffer to the others
    void Clear();      // a locked buffer stays
    void AllocCopy(Self& dest, int copyLen, int copyIndex, int extraLen) const; // of a part
    void ConcatCopy(int n1, const Ch* p1, int n2, const Ch* p2); // a new buffer; the old is not released
    void ConcatInPlace(int n, const Ch* p);                      // appends; p may lie in this buffer
    void FormatV(const Ch* format, va_list args);                // all formatting ends in the third
    void FormatList(const Ch* format, FormatArguments args);
    void FormatFrom(const Ch* format, const FormatSource& source);
    void Release()
    {
        Release(GetData());
        Init();
    }
    static void Release(Data* data)
    {
        if (data->data() == emptyCharacters(Ch{})) return;
        // Who holds it alone, or has locked it, need not count down: nobody else can take a share.
        if (RefsOf(data) <= 1 || InterlockedDecrement(&data->nRefs) == 0) ::operator delete(data);
    }
    // Null counts as empty.
    static int SafeStrlen(const Ch* p) { return p ? countedLength(textLength(p)) : 0; }

    // The count, readable while other threads change it.
    static LONG RefsOf(Data* data) { return std::atomic_ref(data->nRefs).load(std::memory_order_acquire); }
    bool IsEmptyBuffer() const { return m_pchData == emptyCharacters(Ch{}); } // the one of all empty strings
    bool IsLocked() const { return RefsOf(GetData()) < 0 && !IsEmptyBuffer(); }
    bool IsOwnWithRoom(LONGLONG n) const { return RefsOf(GetData()) < 2 && n <= GetAllocLength(); }
    struct Hold;                                // a share for a scope
    void SetLength(int n);                      // with the terminator, kept inside the buffer
    void CopyOfLocked(const SharedText& other); // with a buffer of its own
    static Self Joined(int n1, const Ch* p1, int n2, const Ch* p2); // a new text of both

    Ch* m_pchData; // never null
};

template <class Self, class Ch>
inline void SharedText<Self, Ch>::AllocBuffer(int n)
{
    if (n <= 0) {
        Init();
        return;
    }
    const std::size_t characters = static_cast<std::size_t>(n) + 1;
    auto* data = static_cast<Data*>(::operator new(sizeof(Data) + characters * sizeof(Ch)));
    *data = {1, n, n};
    m_pchData = data->data();
    m_pchData[n] = Ch{};
}

} // namespace corekit::detail
