// The framework's narrow string: the text type of exceptions, resources and file names.
//
// A CString is one pointer to zero-terminated characters in a shared block with an atomic count, so a copy
// costs one increment; whoever writes first gets a block of its own. Strings that share a block may live
// on different threads; one string object belongs to one thread at a time. The bytes are in the active
// code page; zeros inside the text survive everything that takes a length. Null pointers count as empty
// text, indices outside are clamped or ignored, and a length past 2^31 throws the memory exception.
//
// Cost: assigning and copying a CString allocates nothing. Appending grows the block by half, so building a
// text piece by piece is linear; everything else that changes a text allocates exactly what it needs.
// Operations that make a new text may be given parts of this one.
//
//     CString path = folder;
//     if (path.Right(1) != "/") path += '/';
//     path += name.Left(name.ReverseFind('.'));
//     path.Replace(' ', '_');
//     CString line;
//     line.Format("%s has %d lines", path, count);
//     std::fopen(path, "r"); // converts to const char* by itself
//
// A buffer for a call that fills one:
//
//     const int length = GetWindowTextLengthA(window);
//     GetWindowTextA(window, text.GetBuffer(length), length + 1);
//     text.ReleaseBuffer();
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
    CString() noexcept : m_text(EmptyText()) {} // empty; allocates nothing
    CString(const CString& other) noexcept;
    // Leaves `other` empty.
    CString(CString&& other) noexcept : m_text(other.m_text) { other.m_text = EmptyText(); }
    // Copies up to the terminating zero.
    CString(const char* text);
    // The same bytes.
    CString(const unsigned char* text);
    // Copies `length` bytes, zeros included; 0 or less gives the empty text.
    CString(const char* text, int length);
    // That character `count` times.
    explicit CString(char ch, int count = 1);
    // Converted to the active code page, up to the zero or for `length` units. What the code page cannot
    // hold becomes its replacement, "?" as a rule and U+FFFD in UTF-8.
    CString(const WCHAR* text);
    CString(const WCHAR* text, int length);
    ~CString() { Release(); }

    // Shares the other's block.
    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept;
    // The text may lie within this string.
    CString& operator=(const char* text);
    CString& operator=(const WCHAR* text);
    // One character, a zero as well.
    CString& operator=(char ch);

    // Bytes without the terminator, not characters where the code page has longer ones. Kept with the text,
    // so it costs nothing.
    int GetLength() const noexcept;
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    // Lets go of the block; capacity goes with it.
    void Empty() noexcept;
    // Never null, always terminated. Good until this string changes or goes.
    operator const char*() const noexcept { return m_text; }
    const char* GetString() const noexcept { return m_text; }
    // 0 outside the text.
    char GetAt(int index) const noexcept;
    char operator[](int index) const noexcept { return GetAt(index); }
    // Nothing happens outside the text. Takes a block of its own first, if it shares one.
    void SetAt(int index, char ch);

    // Appends; null appends nothing.
    CString& operator+=(const CString& other);
    CString& operator+=(const char* text);
    // A zero is appended like any other byte.
    CString& operator+=(char ch);
    // `length` bytes, zeros included.
    void Append(const char* text, int length);

    // Parts of the text; counts and starts outside it are clamped to it. The first `count` bytes. Where that
    // is all of it, the block is shared.
    CString Left(int count) const;
    // The last `count` bytes.
    CString Right(int count) const;
    // From byte `first`, counted from 0, to the end.
    CString Mid(int first) const;
    // `count` bytes of them.
    CString Mid(int first, int count) const;
    // The longest beginning made up of bytes of the set, or of none of them. Both stop at a zero in the
    // text.
    CString SpanIncluding(const char* set) const;
    // A null set is empty: nothing for SpanIncluding, all for SpanExcluding.
    CString SpanExcluding(const char* set) const;

    // Byte order, unsigned: below 0, 0 or above 0. NoCase folds by the C locale. All three stop at a zero in
    // either text; the operators below compare whole texts. Collate follows the C locale that the program
    // has set.
    int Compare(const char* text) const noexcept;
    int CompareNoCase(const char* text) const noexcept;
    int Collate(const char* text) const noexcept;

    // An index or -1; a start outside the text finds nothing.
    int Find(char ch, int start = 0) const noexcept;
    // An empty text is found at the start. Case counts, as in all searches here.
    int Find(const char* text, int start = 0) const noexcept;
    // The first place of any byte of the set.
    int FindOneOf(const char* set) const noexcept;
    int ReverseFind(char ch) const noexcept; // the last place

    // By the C locale, byte by byte; bytes above ASCII of a code page with longer characters stay as that
    // locale has them.
    void MakeUpper();
    // As MakeUpper.
    void MakeLower();
    void MakeReverse(); // byte by byte, so only for text of one byte a character
    // Without a set white space goes: blank, tab, line feed, vertical tab, form feed, return.
    void TrimLeft();
    // Bytes of the set instead; a null set trims nothing.
    void TrimLeft(const char* set);
    // As TrimLeft, from the end.
    void TrimRight();
    void TrimRight(const char* set);
    // How many were replaced; an empty `from` replaces nothing. Answers 0 and changes nothing for equal
    // characters.
    int Replace(char from, char to);
    // Places do not overlap: the search goes on behind what was replaced. A null `to` deletes.
    int Replace(const char* from, const char* to);
    int Remove(char ch); // answers how many bytes went
    // Both return the new length; a position past the end is the end. A place below 0 is the beginning for
    // Insert, and changes nothing for Delete.
    int Insert(int index, const char* text);
    int Delete(int index, int count = 1); // as many as there are, where `count` is more

    // printf style; FormatArgument.h has the letters. The arguments are numbers, characters, texts of either
    // width and string objects, this one too.
    template <corekit::detail::Formattable... Args>
    // Replaces this text. A null format gives the empty text.
    void Format(const char* format, const Args&... args)
    {
        FormatList(format, corekit::detail::listArguments(args...));
    }
    template <corekit::detail::Formattable... Args>
    // A text that no module has gives an empty result.
    void Format(UINT formatId, const Args&... args) // the format comes from the string table
    {
        CString format;
        format.LoadString(formatId);
        FormatList(format, corekit::detail::listArguments(args...));
    }
    // `args` are read by the letters of the format alone, which must be right.
    void FormatV(const char* format, va_list args);

    // Numbered inserts: %1 to %99 take the argument of that number, a text unless a printf form follows as in
    // %2!d! or %1!-8.3s!: integers, characters, pointers, narrow s or hs, wide S or ls. Arguments count by
    // their own type; those of a va_list are what the form says, integers of 32 bits, of 64 with ll or I64. A
    // * takes the argument of the insert's number and moves the value one on. Also %n a line end, %r a
    // return, %0 the end of the text, % before another character that character. A form that is none of these
    // is left as it stands.
    template <corekit::detail::Formattable... Args>
    // More than 99 arguments are passed over.
    void FormatMessage(const char* format, const Args&... args)
    {
        FormatMessageList(format, corekit::detail::listArguments(args...));
    }
    template <corekit::detail::Formattable... Args>
    // The text comes from the string table.
    void FormatMessage(UINT formatId, const Args&... args)
    {
        CString format;
        format.LoadString(formatId);
        FormatMessageList(format, corekit::detail::listArguments(args...));
    }
    // Reads as many arguments as the highest number of the format asks for.
    void FormatMessageV(const char* format, va_list args);

    // False, and empty, if no loaded module has a text of that number. In Module.h is where texts are looked
    // for.
    bool LoadString(UINT id);

    // Room for at least `capacity` characters and a terminator, to be written by the caller; the text so far
    // stays. Follow it with ReleaseBuffer, where -1 means up to the first zero. The block is this string's
    // alone from then on. Sharing it again before ReleaseBuffer shares unfinished text.
    char* GetBuffer(int capacity);
    // The same, and the length is set at once; the content is what the caller writes, so no ReleaseBuffer is
    // needed.
    char* GetBufferSetLength(int length);
    // Sets the length, at most the capacity, and terminates the text.
    void ReleaseBuffer(int length = -1);
    // Copies the text into a block of just its size, if it has a larger one.
    void FreeExtra();

    // Bytes as unsigned numbers, zeros included.
    friend bool operator==(const CString& a, const CString& b) noexcept { return a.Order(b) == 0; }
    // Up to the first zero of either, as Compare; null counts as "".
    friend bool operator==(const CString& a, const char* b) noexcept { return a.Compare(b) == 0; }
    // The order of operator==.
    friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept
    {
        return a.Order(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const CString& a, const char* b) noexcept
    {
        return a.Compare(b) <=> 0;
    }

    // Lets a string object stand among the arguments of a format.
    friend const char* FormattedText(const CString& text) noexcept { return text.m_text; }

private:
    friend class corekit::detail::MessageText;
    // The count, the length and the capacity, in front of the characters.
    struct Block;
    static char* EmptyText() noexcept; // one for all empty strings
    Block* Header() const noexcept;
    bool Shared() const noexcept; // also true for the empty block
    void Release() noexcept;      // leaves the empty text
    // Takes a text that may lie in this block.
    void Assign(const char* text, int length);
    char* Reserve(LONGLONG capacity, bool exact);   // an unshared block that keeps the text
    void SetLength(int length) noexcept;            // within the capacity; terminates
    int Order(const CString& other) const noexcept; // of the whole texts
    // Counts first where the result is longer than a small buffer on the stack, so nothing is cut.
    void FormatFrom(const char* format, const corekit::detail::FormatSource& source);
    void FormatList(const char* format, corekit::detail::FormatArguments args);
    void FormatMessageList(const char* format, corekit::detail::FormatArguments args);

    char* m_text;
};

// Joined texts; a null pointer counts as empty. Throws the memory exception beyond 2^31 bytes.
COREKIT_API CString operator+(const CString& a, const CString& b);
// One allocation for the two that join two string objects; the others copy the left side first.
COREKIT_API CString operator+(const CString& a, const char* b);
COREKIT_API CString operator+(const char* a, const CString& b);
COREKIT_API CString operator+(const CString& a, char b);
COREKIT_API CString operator+(char a, const CString& b);
