// How the prompt view looks. A plain value; all lengths are pixels of the frame.
#pragma once

#include "corekit/platform/Types.h"

#include <string>
#include <vector>

namespace prompter {

enum class Brackets { asTyped, mirrored }; // on right-to-left stretches

struct PromptStyle {
    std::vector<std::string> faces; // empty: the usual ones of the machine
    int size = 72;                  // of the em
    int lineGap = 40;               // percent of the size between two lines
    int margin = 80;                // at either side
    int readingMark = 33;           // percent of the height, where the line being read stands
    COLORREF text = RGB(255, 255, 255), back = RGB(0, 0, 0), mark = RGB(255, 160, 0);
    Brackets brackets = Brackets::mirrored;

    int LineHeight() const { return size + size * lineGap / 100; }
    // From a line's top; room for high marks is above, for low letters below.
    int Baseline() const { return LineHeight() * 3 / 4; }

    friend bool operator==(const PromptStyle&, const PromptStyle&) = default;
};

} // namespace prompter
