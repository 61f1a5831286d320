// StringW: the wide string, UTF-16 code units.
//
// Everything that both widths have (lengths, comparison, Find, Left, Mid, Right, Trim, Format, GetBuffer,
// ...) is told in SharedText.h. Narrow text given to a StringW is in the active code page, a single narrow
// character excepted: that is sign-extended as it stands, so that the byte 0xE9 becomes U+FFE9.
#pragma once

#include "corekit/foundation/SharedText.h"

struct VARIANT;

using StringWData = corekit::detail::TextHeader<WCHAR>;

class COREKIT_API StringW : public corekit::detail::SharedText<StringW, WCHAR> {
    using Base = SharedText;

public:
    constexpr StringW() noexcept = default;
    StringW(const StringW&) = default;
    StringW(StringW&&) noexcept = default;
    ~StringW() = default;
    StringW(WCHAR ch, int n) : Base(ch, n) {}           // n times ch
    StringW(const WCHAR* p, int n) : Base(p, n) {}      // n characters, zeros included
    StringW(const WCHAR* p) : Base(p, SafeStrlen(p)) {} // null is the empty text, here and below
    StringW(const char* p);
    StringW(const unsigned char* p);
    // The text of a VT_BSTR up to its first zero; the type is not looked at, and the value is not null.
    StringW(const VARIANT& value);

    StringW& operator=(const StringW&) = default;
    StringW& operator=(StringW&&) = default;
    StringW& operator=(const WCHAR* p)
    {
        AssignCopy(SafeStrlen(p), p);
        return *this;
    }
    StringW& operator=(WCHAR ch)
    {
        AssignCopy(1, &ch);
        return *this;
    }
    StringW& operator=(const char* p);
    StringW& operator=(const unsigned char* p);
    StringW& operator=(char ch) { return *this = Widened(ch); }

    StringW& operator+=(const StringW& other)
    {
        ConcatInPlace(other.GetLength(), other);
        return *this;
    }
    StringW& operator+=(const WCHAR* p)
    {
        ConcatInPlace(SafeStrlen(p), p);
        return *this;
    }
    StringW& operator+=(WCHAR ch)
    {
        ConcatInPlace(1, &ch);
        return *this;
    }
    StringW& operator+=(char ch) { return *this += Widened(ch); }

    friend StringW operator+(const StringW& a, char b) { return a + Widened(b); }
    friend StringW operator+(char a, const StringW& b) { return Widened(a) + b; }

    // Replaces every occurrence of a character; how many there were. 0 if both are the same.
    int Replace(WCHAR from, WCHAR to);

    // The text as an automation value of type VT_BSTR. The caller clears the returned one.
    void StoreToVariant(VARIANT& value) const;
    operator VARIANT() const;

private:
    static WCHAR Widened(char ch) { return static_cast<WCHAR>(static_cast<signed char>(ch)); }
};

static_assert(sizeof(StringW) == sizeof(void*));

extern template class corekit::detail::SharedText<StringW, WCHAR>;

// The empty string, for functions that return a reference.
COREKIT_API const StringW& AfxGetEmptyStringW();
