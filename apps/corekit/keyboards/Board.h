// The keys of a real keyboard: where they lie and what is printed on them.
#pragma once

#include "corekit/unicode/ui/keyboards/Typist.h"

#include <optional>
#include <string>
#include <vector>

// One key cap. Places are in key widths from the top left corner.
struct Cap {
    int key;          // virtual key; 0 for Tab, Shift and the like
    std::string name; // what is printed on those, and on the space bar
    char16_t plain;   // what the key types when the platform translates it
    char16_t shifted;
    double x, width;
    int row;
};

struct Board {
    std::string title;
    std::vector<Cap> caps;
};
inline constexpr double boardWidth = 15; // key widths
inline constexpr int boardRows = 5;

// The boards "uk" and "us". Throws std::runtime_error for another name.
const Board& BoardNamed(const std::string& name);

// The stroke that prints a character on the board, if there is one.
std::optional<KeyStroke> StrokeOf(const Board& board, char16_t character);
// A stroke by its name: any of shift+, ctrl+, alt+, altgr+, then what is printed on the key, space, enter,
// tab, backspace, num0 to num9, or the key's number as 0xBA. Throws std::runtime_error for another.
KeyStroke ParseStroke(const Board& board, const std::string& name);
// What the platform types for a stroke that the keyboard left to it; 0 for nothing.
char16_t PlatformCharacter(const Board& board, const KeyStroke& stroke);
