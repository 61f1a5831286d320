// StringA: the narrow string, bytes in the active code page.
//
// Everything that both widths have (lengths, comparison, Find, Left, Mid, Right, Trim, Format, GetBuffer,
// ...) is told in SharedText.h. Wide text given to a StringA is converted by the active code page; where a
// character has more than one byte there, the result is cut to as many bytes as the wide text has units.
//
//     StringA name("rundown");
//     name += ".txt";
//     const StringA stem = name.Left(name.Find('.'));
//     StringA line;
//     line.Format("%s has %d items", stem, 12);
#pragma once

#include "corekit/foundation/SharedText.h"

using StringAData = corekit::detail::TextHeader<char>;

class COREKIT_API StringA : public corekit::detail::SharedText<StringA, char> {
    using Base = SharedText;

public:
    constexpr StringA() noexcept = default; // the empty text; allocates nothing
    // Copying shares the buffer and costs one atomic increment; moving takes it and leaves the empty text
    // behind.
    StringA(const StringA&) = default;
    StringA(StringA&&) noexcept = default;

    ~StringA() = default;                              // frees the buffer if nobody shares it
    StringA(char ch, int n) : Base(ch, n) {}           // n times ch
    StringA(const char* p, int n) : Base(p, n) {}      // n characters, zeros included
    StringA(const char* p) : Base(p, SafeStrlen(p)) {} // null is the empty text, here and below
    StringA(const unsigned char* p) : StringA(reinterpret_cast<const char*>(p)) {}
    // Converts up to the zero, as every operation here that takes a pointer to wide text; null is empty.
    StringA(const WCHAR* p);

    // Assignments share a string's buffer and copy anything else; a locked buffer is written into instead
    // while the text fits. The source may lie in the string itself.
    StringA& operator=(const StringA&) = default;
    StringA& operator=(StringA&&) = default;
    StringA& operator=(const char* p)
    {
        AssignCopy(SafeStrlen(p), p);
        return *this;
    }
    // The same bytes.
    StringA& operator=(const unsigned char* p) { return *this = reinterpret_cast<const char*>(p); }

    StringA& operator=(char ch) // a text of that one
    {
        AssignCopy(1, &ch);
        return *this;
    }
    // Reserves four bytes for each unit, which is enough in every code page.
    StringA& operator=(const WCHAR* p);

    using Base::AssignCopy;
    // Takes at most n - 1 units of wide text, up to its zero; the result has room for n - 1 bytes and loses
    // whole characters at its end that do not fit.
    void AssignCopy(int n, const WCHAR* p);

    // Appending writes into the room behind the text where the string has its buffer for itself, and
    // otherwise makes a new buffer of exactly the size needed. The text appended may lie in the string
    // itself.
    StringA& operator+=(const StringA& other) // its length counts, zeros included
    {
        ConcatInPlace(other.GetLength(), other);
        return *this;
    }
    StringA& operator+=(const char* p) // up to the zero; null appends nothing
    {
        ConcatInPlace(SafeStrlen(p), p);
        return *this;
    }
    StringA& operator+=(char ch) // one byte
    {
        ConcatInPlace(1, &ch);
        return *this;
    }
    // The character in the code page, as many bytes as it has there.
    StringA& operator+=(WCHAR ch) { return *this += Narrowed(ch); }

    // Both likewise.
    friend StringA operator+(const StringA& a, WCHAR b) { return a + Narrowed(b); }
    friend StringA operator+(WCHAR a, const StringA& b) { return Narrowed(a) + b; }

protected:
    using Base::ConcatCopy;
    // Joins narrow and wide text into a new buffer, for derived classes; of the wide part as much as fits n
    // bytes with a terminator. The buffer before is not released.
    void ConcatCopy(int n1, const char* p1, int n2, const WCHAR* p2);
    void ConcatCopy(int n1, const WCHAR* p1, int n2, const char* p2);

private:
    // One character in the code page, all its bytes.
    static StringA Narrowed(WCHAR ch);
};

static_assert(sizeof(StringA) == sizeof(void*)); // arrays of strings are arrays of pointers

extern template class corekit::detail::SharedText<StringA, char>;

// The empty string, for functions that return a reference. It lives as long as the program and is not to be
// changed.
COREKIT_API const StringA& AfxGetEmptyStringA();
