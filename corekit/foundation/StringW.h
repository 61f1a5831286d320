// StringW: the wide string, UTF-16 code units.
//
// Everything that both widths have (lengths, comparison, Find, Left, Mid, Right, Trim, Format, GetBuffer,
// ...) is told in SharedText.h. Narrow text given to a StringW is in the active code page, a single narrow
// character excepted: that is sign-extended as it stands, so that the byte 0xE9 becomes U+FFE9.
//
//     StringW title(u"Good evening");
//     if (title.Find(u"evening") >= 0) title.MakeUpper();
//     StringW line;
//     line.Format(u"%d: %s", 1, title);
#pragma once

#include "corekit/foundation/SharedText.h"

struct VARIANT;

using StringWData = corekit::detail::TextHeader<WCHAR>;

class COREKIT_API StringW : public corekit::detail::SharedText<StringW, WCHAR> {
    using Base = SharedText;

public:
    constexpr StringW() noexcept = default; // the empty text; allocates nothing
    // Copying shares the buffer and costs one atomic increment; moving takes it and leaves the empty text
    // behind.
    StringW(const StringW&) = default;
    StringW(StringW&&) noexcept = default;

    ~StringW() = default;                               // frees the buffer if nobody shares it
    StringW(WCHAR ch, int n) : Base(ch, n) {}           // n times ch
    StringW(const WCHAR* p, int n) : Base(p, n) {}      // n characters, zeros included
    StringW(const WCHAR* p) : Base(p, SafeStrlen(p)) {} // null is the empty text, here and below
    // Converts up to the zero, as every operation here that takes a pointer to narrow text.
    StringW(const char* p);
    StringW(const unsigned char* p);
    // The text of a VT_BSTR up to its first zero; the type is not looked at, and the value is not null.
    StringW(const VARIANT& value);

    // Assignments share a string's buffer and copy anything else; a locked buffer is written into instead
    // while the text fits. The source may lie in the string itself.
    StringW& operator=(const StringW&) = default;
    StringW& operator=(StringW&&) = default;
    StringW& operator=(const WCHAR* p)
    {
        AssignCopy(SafeStrlen(p), p);
        return *this;
    }
    StringW& operator=(WCHAR ch) // a text of that one
    {
        AssignCopy(1, &ch);
        return *this;
    }
    // Bytes that are no text in the code page become whatever the conversion of CodePageText.h gives for
    // them.
    StringW& operator=(const char* p);
    StringW& operator=(const unsigned char* p); // the same

    StringW& operator=(char ch) { return *this = Widened(ch); } // a text of that one, sign-extended

    // Appending writes into the room behind the text where the string has its buffer for itself, and
    // otherwise makes a new buffer of exactly the size needed. The text appended may lie in the string
    // itself.
    StringW& operator+=(const StringW& other) // its length counts, zeros included
    {
        ConcatInPlace(other.GetLength(), other);
        return *this;
    }
    StringW& operator+=(const WCHAR* p) // up to the zero; null appends nothing
    {
        ConcatInPlace(SafeStrlen(p), p);
        return *this;
    }
    StringW& operator+=(WCHAR ch) // one unit
    {
        ConcatInPlace(1, &ch);
        return *this;
    }
    // Sign-extended, not converted; so are the narrow characters of the two sums below.
    StringW& operator+=(char ch) { return *this += Widened(ch); }

    friend StringW operator+(const StringW& a, char b) { return a + Widened(b); }
    friend StringW operator+(char a, const StringW& b) { return Widened(a) + b; }

    // Replaces every occurrence of a unit, behind a zero in the text as well; how many there were. 0 if
    // both are the same.
    int Replace(WCHAR from, WCHAR to);

    // The text, up to its first zero, as an automation value of type VT_BSTR. What `value` held is cleared
    // first, so it must have been initialised; the caller clears it in the end, and the returned one too.
    // Throws std::bad_alloc.
    void StoreToVariant(VARIANT& value) const;
    // A new automation value, which the caller clears.
    operator VARIANT() const;

private:
    // The narrow character as it stands: no code page is asked.
    static WCHAR Widened(char ch) { return static_cast<WCHAR>(static_cast<signed char>(ch)); }
};

static_assert(sizeof(StringW) == sizeof(void*)); // arrays of strings are arrays of pointers

extern template class corekit::detail::SharedText<StringW, WCHAR>;

// The empty string, for functions that return a reference. It lives as long as the program and is not to be
// changed.
COREKIT_API const StringW& AfxGetEmptyStringW();
