// A keyboard as a picture shows it: what each key of a board types, state by state.
#pragma once

#include "Board.h"

#include "corekit/unicode/ui/keyboards/Typist.h"

#include <string>
#include <vector>

class CKBLayout;

// What the keys of a board type on a keyboard, in one pair of states.
struct KeyFace {
    Typist::Typed plain, shifted;
    Typist::Typed third; // with Ctrl and Shift, where that differs from Shift; else not consumed
};
struct KeyboardView {
    std::string title;          // empty where there is one view only
    std::vector<KeyFace> faces; // one for each cap of the board
};
// The pairs of states in which the keyboard types anything.
std::vector<KeyboardView> ViewsOf(CKBLayout& keyboard, const Board& board);
