// Text of callers, who use the active code page, and its way to the registry's file, which holds UTF-8.
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

// In text of callers the second byte of a character may look like a sign of ASCII, a backslash say.
bool isLeadByte(char c); // the first byte of two
// The place of a sign that stands for itself, or npos, and whether the text ends with one.
std::size_t findSign(std::string_view narrow, char sign);
bool endsWithSign(std::string_view narrow, char sign);

} // namespace corekit::detail
