// Colours as people choose them: by name, or as #RRGGBB.
#pragma once

#include "corekit/platform/Types.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace prompter {

struct NamedColour {
    const char* name;
    COLORREF colour;
};
std::span<const NamedColour> NamedColours();

// The name where it has one.
std::string ColourText(COLORREF colour);
// A name in any letter case, or #RRGGBB; blanks around it do not matter.
std::optional<COLORREF> ParseColour(std::string_view text);

} // namespace prompter
