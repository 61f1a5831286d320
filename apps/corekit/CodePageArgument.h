// Code pages as a person names them on the command line.
#pragma once

#include <string>
#include <string_view>

// UTF-16 in little-endian order, which the tool converts by itself.
inline constexpr int utf16Page = 1200;

// By number, by a common name such as windows-1252, cp932, utf-8 or iso-8859-2, or by its text in the list,
// without regard to case. Throws std::runtime_error when there is none, or when it cannot be converted.
int CodePageFrom(std::string_view text);

// Every page that has a name or can be converted, as a table.
void PrintCodePages();
