// The engine under the Format members of all string classes; FormatArgument.h has the letters.
#pragma once

#include "corekit/framework/FormatArgument.h"
#include "corekit/platform/Types.h"

#include <cstdarg>

namespace corekit::detail {

// Where the arguments come from: a list of known types, or a va_list. Each copy takes them from the first.
class FormatSource {
public:
    explicit FormatSource(FormatArguments list) : m_list(list) {}
    explicit FormatSource(va_list list) : m_hasTypes(false) { va_copy(m_va, list); }
    FormatSource(const FormatSource& other) : m_hasTypes(other.m_hasTypes), m_list(other.m_list)
    {
        if (!m_hasTypes) va_copy(m_va, const_cast<FormatSource&>(other).m_va);
    }
    FormatSource& operator=(const FormatSource&) = delete;
    ~FormatSource()
    {
        if (!m_hasTypes) va_end(m_va);
    }

    // The next argument. Without types it is taken as the type named: an int, a long, ...
    template <class T>
    FormatArgument Next()
    {
        if (!m_hasTypes) return FormatArgument(va_arg(m_va, T));
        if (m_list.empty()) return {};
        const FormatArgument& first = m_list.front();
        m_list = m_list.subspan(1);
        return first;
    }

    // The next argument where the types are known, else null; SkipKnown passes it by.
    const FormatArgument* Known() const { return m_list.empty() ? nullptr : m_list.data(); }
    void SkipKnown() { m_list = m_list.subspan(1); }

private:
    const bool m_hasTypes = true;
    FormatArguments m_list;
    va_list m_va;
};

// The characters of a buffer, from the first up to the one that ends it.
template <class Ch>
struct BufferRange {
    Ch* begin = nullptr;
    Ch* end = nullptr;
};

struct FormatResult {
    int length; // of the whole text
    // The room that a string reserves for it: generous for plain characters (each counts as many as the
    // format still has) and too small for a few forms, such as a width above the precision of a text.
    int room;
    bool readsOwn;     // the format or a text among the arguments lies in `own`
    bool hasCharacter; // which may be a zero; texts hold none
};

// Formats into `out` as much as fits, without a terminator. Only a text that is longer needs a second call.
FormatResult writeFormat(BufferRange<char> out, const char* format, const FormatSource& source,
                         BufferRange<char> own = {});
FormatResult writeFormat(BufferRange<WCHAR> out, const WCHAR* format, const FormatSource& source,
                         BufferRange<WCHAR> own = {});

} // namespace corekit::detail
