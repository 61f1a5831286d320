// Text from outside on its way to a person.
#pragma once

#include "corekit/platform/Export.h"

#include <string>
#include <string_view>

namespace corekit {

enum class LineEnds { kept, escaped };

// The text with nothing in it that steers a terminal or ends a line of a log: control characters, also those
// above ASCII, and bytes that are no UTF-8 become \x1B or \u009B. Tabs stay, and so do line ends if they are
// to be kept (LF and CRLF).
COREKIT_API std::string HarmlessText(std::string_view text, LineEnds ends);

} // namespace corekit
