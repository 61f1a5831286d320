// The pictures of the buttons, drawn by the program: strips of one picture a command.
#pragma once

#include <cstddef>
#include <vector>

// A bitmap resource with all pictures side by side.
std::vector<std::byte> ButtonStrip(int width, int height);
