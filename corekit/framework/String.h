// The framework's narrow string: the text type of exceptions, resources and file names.
//
// A CString is one pointer to zero-terminated characters in a shared block with an atomic count, so a copy
// costs one increment; whoever writes first gets a block of its own. Strings that share a block may live
// on different threads; one string object belongs to one thread at a time. The bytes are in the active
// code page; zeros inside the text survive everything that takes a length. Null pointers count as empty
// text, indices outside are clamped or ignored, and a length past 2^31 throws the memory exception.
#pragma once

#include "corekit/framework/FormatArgument.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <compare>
#include <cstdarg>

namespace corekit::detail {
class FormatSource;
class MessageText;
} // namespace corekit::detail

class COREKIT_API CString {
public:
    CString() noexcept : m_text(EmptyText()) {}
    CString(const CString& other) noexcept;
    CString(CString&& other) noexcept : m_text(other.m_text) { other.m_text = EmptyText(); }
    CString(const char* text);
    CString(const unsigned char* text);
    CString(const char* text, int length);
    explicit CString(char ch, int count = 1);
    // Converted to the active code page, up to the zero or for `length` units.
    CString(const WCHAR* text);
    CString(const WCHAR* text, int length);
    ~CString() { Release(); }

    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept;
    CString& operator=(const char* text);
    CString& operator=(const WCHAR* text);
    CString& operator=(char ch);

    int GetLength() const noexcept;
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    void Empty() noexcept;
    operator const char*() const noexcept { return m_text; }
    const char* GetString() const noexcept { return m_text; }
    // 0 outside the text.
    char GetAt(int index) const noexcept;
    char operator[](int index) const noexcept { return GetAt(index); }
    // Nothing happens outside the text.
    void SetAt(int index, char ch);

    CString& operator+=(const CString& other);
    CString& operator+=(const char* text);
    CString& operator+=(char ch);
    void Append(const char* text, int length);

    // Parts of the text; counts and starts outside it are clamped to it.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString SpanIncluding(const char* set) const;
    CString SpanExcluding(const char* set) const;

    // Byte order, unsigned: below 0, 0 or above 0. NoCase folds by the C locale.
    int Compare(const char* text) const noexcept;
    int CompareNoCase(const char* text) const noexcept;
    int Collate(const char* text) const noexcept;

    // An index or -1; a start outside the text finds nothing.
    int Find(char ch, int start = 0) const noexcept;
    int Find(const char* text, int start = 0) const noexcept;
    int FindOneOf(const char* set) const noexcept;
    int ReverseFind(char ch) const noexcept;

    void MakeUpper();
    void MakeLower();
    void MakeReverse();
    void TrimLeft();
    void TrimLeft(const char* set);
    void TrimRight();
    void TrimRight(const char* set);
    // How many were replaced; an empty `from` replaces nothing.
    int Replace(char from, char to);
    int Replace(const char* from, const char* to);
    int Remove(char ch);
    // Both return the new length; a position past the end is the end.
    int Insert(int index, const char* text);
    int Delete(int index, int count = 1);

    // printf style; FormatArgument.h has the letters. The arguments are numbers, characters, texts of either
    // width and string objects, this one too.
    template <corekit::detail::Formattable... Args>
    void Format(const char* format, const Args&... args)
    {
        FormatList(format, corekit::detail::ListArguments(args...));
    }
    template <corekit::detail::Formattable... Args>
    void Format(UINT formatId, const Args&... args) // the format comes from the string table
    {
        CString format;
        format.LoadString(formatId);
        FormatList(format, corekit::detail::ListArguments(args...));
    }
    void FormatV(const char* format, va_list args);

    // Numbered inserts: %1 to %99 take the argument of that number, a text unless a printf form follows as in
    // %2!d! or %1!-8.3s!: integers, characters, pointers, narrow s or hs, wide S or ls. Arguments count by
    // their own type; those of a va_list are what the form says, integers of 32 bits, of 64 with ll or I64. A
    // * takes the argument of the insert's number and moves the value one on. Also %n a line end, %r a
    // return, %0 the end of the text, % before another character that character. A form that is none of these
    // is left as it stands.
    template <corekit::detail::Formattable... Args>
    void FormatMessage(const char* format, const Args&... args)
    {
        FormatMessageList(format, corekit::detail::ListArguments(args...));
    }
    template <corekit::detail::Formattable... Args>
    void FormatMessage(UINT formatId, const Args&... args)
    {
        CString format;
        format.LoadString(formatId);
        FormatMessageList(format, corekit::detail::ListArguments(args...));
    }
    void FormatMessageV(const char* format, va_list args);

    // False, and empty, if no loaded module has a text of that number.
    bool LoadString(UINT id);

    // Room for at least `capacity` characters and a terminator, to be written by the caller; the text so
    // far stays. Follow it with ReleaseBuffer, where -1 means up to the first zero.
    char* GetBuffer(int capacity);
    char* GetBufferSetLength(int length);
    void ReleaseBuffer(int length = -1);
    void FreeExtra();

    friend bool operator==(const CString& a, const CString& b) noexcept { return a.Order(b) == 0; }
    friend bool operator==(const CString& a, const char* b) noexcept { return a.Compare(b) == 0; }
    friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept
    {
        return a.Order(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const CString& a, const char* b) noexcept
    {
        return a.Compare(b) <=> 0;
    }

    friend const char* FormattedText(const CString& text) noexcept { return text.m_text; }

private:
    friend class corekit::detail::MessageText;
    struct Block;
    static char* EmptyText() noexcept;
    Block* Header() const noexcept;
    bool Shared() const noexcept;
    void Release() noexcept;
    void Assign(const char* text, int length);
    char* Reserve(LONGLONG capacity, bool exact); // an unshared block that keeps the text
    void SetLength(int length) noexcept;
    int Order(const CString& other) const noexcept;
    void FormatFrom(const char* format, const corekit::detail::FormatSource& source);
    void FormatList(const char* format, corekit::detail::FormatArguments args);
    void FormatMessageList(const char* format, corekit::detail::FormatArguments args);

    char* m_text;
};

COREKIT_API CString operator+(const CString& a, const CString& b);
COREKIT_API CString operator+(const CString& a, const char* b);
COREKIT_API CString operator+(const char* a, const CString& b);
COREKIT_API CString operator+(const CString& a, char b);
COREKIT_API CString operator+(char a, const CString& b);
