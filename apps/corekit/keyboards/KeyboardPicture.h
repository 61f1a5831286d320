// A keyboard as a picture.
#pragma once

#include "KeyboardViews.h"
#include "PixelCanvas.h"

#include <memory>

// Draws every view below the other; the toolkit must be running. Throws std::runtime_error if there is no
// memory for the picture.
std::unique_ptr<PixelCanvas> DrawKeyboard(const std::string& name, const Board& board,
                                          const std::vector<KeyboardView>& views);
