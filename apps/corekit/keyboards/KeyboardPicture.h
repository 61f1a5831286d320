// A keyboard as a picture.
#pragma once

#include "KeyboardViews.h"

// Draws every view below the other into a PNG file; the toolkit must be running. Throws std::runtime_error if
// it cannot be written.
void DrawKeyboard(const std::string& name, const Board& board, const std::vector<KeyboardView>& views,
                  const std::string& path);
