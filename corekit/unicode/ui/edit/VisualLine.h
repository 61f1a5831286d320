// A display line in the order in which it is shown, and where its characters stand there.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"

#include <string_view>

namespace corekit::detail {

enum class TextOrder { asStored, bidirectional };

// Keeps its memory from line to line.
class COREKIT_API VisualLine {
public:
    // The line in the order of `order`; stored text is taken as it is. A line of any length, without a
    // newline.
    void Set(std::u16string_view line, TextOrder order);

    // In display order. The renderer may change it; the next Set replaces it.
    StringW& Text() { return m_text; }
    // The resolved direction of each character; none unless ordered.
    CArray<int, int>& Types() { return m_types; }
    // How many characters stand left of the caret that is before the character at `offset`, from 0 to the
    // length. A caret before a right-to-left letter, and before a number in such text, stands on its right.
    int PositionOf(int offset) const;

private:
    // The line is ordered with a mark behind it, which shows where the caret behind its end stands.
    void TakeEndMarkAway();

    StringW m_text;
    CArray<int, int> m_order, m_types; // of each shown character: its place in the line, its direction
    int m_length = 0;
    int m_end = 0; // position of the caret behind the last character
};

} // namespace corekit::detail
