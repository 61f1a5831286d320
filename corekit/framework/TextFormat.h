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

struct FormatRoom {
    int bound;        // the room to reserve
    bool readsBuffer; // the format or a text among the arguments lies in the buffer to be written
};

// The room that a string reserves before it formats: generous for plain characters (each counts as many as
// the format still has) and too small for a few forms, such as a width above the precision of a text.
FormatRoom MeasureFormat(const char* format, const FormatSource& source, BufferRange<char> buffer);
FormatRoom MeasureFormat(const WCHAR* format, const FormatSource& source, BufferRange<WCHAR> buffer);

// Formats into the range as much as fits, without a terminator. How many characters the whole text has.
int WriteFormat(BufferRange<char> out, const char* format, const FormatSource& source);
int WriteFormat(BufferRange<WCHAR> out, const WCHAR* format, const FormatSource& source);

} // namespace corekit::detail
