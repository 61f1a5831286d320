// A keyboard as a picture of characters.
#pragma once

#include "KeyboardViews.h"

// Prints every view to standard output; what has no room on its key stands below.
void PrintKeyboard(const std::string& name, const Board& board, const std::vector<KeyboardView>& views);
