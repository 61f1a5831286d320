// How text with this library's private codes is shown where nobody else knows them.
#pragma once

#include <string>
#include <string_view>

// The same text as Unicode spells it.
std::u16string StandardText(std::u16string_view text);
// What to show on a key for the characters that it types: in the standard spelling, a mark on a dotted
// circle, a blank as an open box.
std::u16string ShownText(std::u16string_view typed);
