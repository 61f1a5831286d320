// How fast a script is read: seconds for a number of lines, or for characters, as the user has set it.
#pragma once

#include <string_view>

namespace prompter {

struct ReadRate {
    bool bySeconds = false; // seconds per line; else characters
    int lines = 3;
    int seconds = 10;
    int charactersPerLine = 15;

    // A line on the screen takes this long at speed 1; always above 0.
    double SecondsPerLine() const;
    // The time for a text at speed 1. A line is as many characters as the rate says, and every line of the
    // text takes at least one.
    double SecondsFor(std::u16string_view text) const
    {
        return static_cast<double>(LinesFor(text)) * SecondsPerLine();
    }
    long long LinesFor(std::u16string_view text) const;
};

} // namespace prompter
