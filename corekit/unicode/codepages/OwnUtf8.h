// The UTF-8 of CP_OWN_UTF8, on plain memory.
#pragma once

#include "corekit/platform/Types.h"

#include <cstddef>
#include <string_view>

namespace corekit::detail {

// What the places below must have behind the result; it is written to and means nothing.
inline constexpr std::size_t utf8Slack = 16; // bytes
inline constexpr std::size_t utf16Slack = 8; // units

std::size_t Utf8Length(std::u16string_view text);
// Returns how many bytes it wrote.
std::size_t EncodeUtf8(std::u16string_view text, char* to);

// How many units the text has; where it is ill formed, no fewer than can be read.
std::size_t Utf16Length(std::string_view text);

struct DecodedUtf8 {
    bool isWhole; // all was read, not only what stands before the first bytes that cannot be
    std::size_t units;
};
DecodedUtf8 DecodeUtf8(std::string_view text, WCHAR* to);

} // namespace corekit::detail
