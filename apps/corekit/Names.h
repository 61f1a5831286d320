// Words for the codes of the character database, as the tables of the tool show them.
#pragma once

#include <string>

std::string GeneralTypeName(int type);
std::string BiDirectionalTypeName(int type);
std::string JoiningTypeName(int type);

// "U+0628" for 0x0628.
std::string CodePoint(char16_t c);

// The character itself where it can be shown in a table, else nothing: controls and codes with no meaning
// outside of a font are left out.
std::string Visible(char16_t c);
