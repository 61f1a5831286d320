// StringA: the narrow string, bytes in the active code page.
//
// Everything that both widths have (lengths, comparison, Find, Left, Mid, Right, Trim, Format, GetBuffer,
// ...) is told in SharedText.h. Wide text given to a StringA is converted by the active code page; where a
// character has more than one byte there, the result is cut to as many bytes as the wide text has units.
#pragma once

#include "corekit/foundation/SharedText.h"

using StringAData = corekit::detail::TextHeader<char>;

class COREKIT_API StringA : public corekit::detail::SharedText<StringA, char> {
    using Base = SharedText;

public:
    constexpr StringA() noexcept = default;
    StringA(const StringA&) = default;
    StringA(StringA&&) noexcept = default;
    ~StringA() = default;
    StringA(char ch, int n) : Base(ch, n) {}           // n times ch
    StringA(const char* p, int n) : Base(p, n) {}      // n characters, zeros included
    StringA(const char* p) : Base(p, SafeStrlen(p)) {} // null is the empty text, here and below
    StringA(const unsigned char* p) : StringA(reinterpret_cast<const char*>(p)) {}
    StringA(const WCHAR* p);

    StringA& operator=(const StringA&) = default;
    StringA& operator=(StringA&&) = default;
    StringA& operator=(const char* p)
    {
        AssignCopy(SafeStrlen(p), p);
        return *this;
    }
    StringA& operator=(const unsigned char* p) { return *this = reinterpret_cast<const char*>(p); }
    StringA& operator=(char ch)
    {
        AssignCopy(1, &ch);
        return *this;
    }
    StringA& operator=(const WCHAR* p);

    using Base::AssignCopy;
    // Takes wide text of n units; the result has room for n - 1 bytes.
    void AssignCopy(int n, const WCHAR* p);

    StringA& operator+=(const StringA& other)
    {
        ConcatInPlace(other.GetLength(), other);
        return *this;
    }
    StringA& operator+=(const char* p)
    {
        ConcatInPlace(SafeStrlen(p), p);
        return *this;
    }
    StringA& operator+=(char ch)
    {
        ConcatInPlace(1, &ch);
        return *this;
    }
    StringA& operator+=(WCHAR ch) { return *this += Narrowed(ch); }

    friend StringA operator+(const StringA& a, WCHAR b) { return a + Narrowed(b); }
    friend StringA operator+(WCHAR a, const StringA& b) { return Narrowed(a) + b; }

protected:
    using Base::ConcatCopy;
    // Joins narrow and wide text; of the wide part as much as fits n bytes with a terminator.
    void ConcatCopy(int n1, const char* p1, int n2, const WCHAR* p2);
    void ConcatCopy(int n1, const WCHAR* p1, int n2, const char* p2);

private:
    // One character in the code page, all its bytes.
    static StringA Narrowed(WCHAR ch);
};

static_assert(sizeof(StringA) == sizeof(void*));

extern template class corekit::detail::SharedText<StringA, char>;

// The empty string, for functions that return a reference.
COREKIT_API const StringA& AfxGetEmptyStringA();
