// UTF-8 to UTF-16 and back: the loops under all converters.
//
// They take the characters of one to three bytes and leave everything else, which each converter treats by
// rules of its own. Behind what they report they may have written anything, within the room.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstddef>
#include <string_view>

namespace corekit::detail {

// What passes for a character of two or three bytes: overlong forms and surrogates, too, or neither.
enum class Utf8Forms { any, proper };

// How far a conversion has come.
template <class From, class To>
struct TextPlace {
    const From* from;
    To* to;
};

// Each stops at a character that it leaves, at one that the room may not hold, or at the end of the text.
COREKIT_API TextPlace<char, WCHAR> widenUtf8(Utf8Forms forms, std::string_view text, WCHAR* to,
                                             std::size_t room);
COREKIT_API TextPlace<WCHAR, char> narrowUtf8(Utf8Forms forms, std::u16string_view text, char* to,
                                              std::size_t room);

// How many bytes a text becomes whose surrogates count one by one, and how many units at most.
COREKIT_API std::size_t utf8Length(std::u16string_view text);
COREKIT_API std::size_t utf16Length(std::string_view text);

} // namespace corekit::detail
