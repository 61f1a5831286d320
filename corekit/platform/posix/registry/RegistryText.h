// Text on its way between callers, who use the active code page, and the registry's file, which holds UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corekit::detail {

// Nothing if the way back would not give the same bytes.
std::optional<std::string> narrowToUtf8(std::string_view narrow);
// What the code page cannot hold becomes its default character.
std::string utf8ToNarrow(std::string_view utf8);
// The form by which names compare: upper case, character for character.
std::string foldName(std::string_view utf8);

} // namespace corekit::detail
