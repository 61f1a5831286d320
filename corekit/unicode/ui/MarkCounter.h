// Where text with more marks in a row than any letter has is cut.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

// The platform's time grows with the square of the marks in a row, so that text is measured and drawn in
// pieces that each end with as many as count as full: what follows of the same marks is alike.
class MarkCounter {
public:
    static constexpr int full = 32;

    // Those that take no room of their own, and controls of the layout, which cost as much.
    static bool IsMark(WCHAR c);
    // Whether it is full with the next character of the text.
    bool IsFullWith(WCHAR c)
    {
        m_count = IsMark(c) ? m_count + 1 : 0;
        return m_count == full;
    }

private:
    int m_count = 0;
};

} // namespace corekit::detail
