// What the windows of the examples need before they open: fonts in which every script of theirs can be
// written.
#pragma once

#include "corekit/unicode/ui/FontDescriptor.h"

#include <string>
#include <vector>

// Makes fonts for the glyph codes of Devanagari, Bengali and Tamil from faces of this machine, for this
// process. Before CUnicodeManager::Initialise.
void MakeIndicFonts();

// The face, and behind it those that have what it lacks; faces that the machine has not are left out. The
// size is the height of letters in pixels.
CFontDescriptor FontWithAllScripts(const std::string& face, int size);

// The faces of the machine, in order of their names.
std::vector<std::string> FacesOfTheMachine();

// Writes a picture of a window as PNG; false if that fails.
bool SavePicture(struct HWND__* window, const std::string& file);
