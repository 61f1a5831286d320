// The commands that need the toolkit, by name: what there is to say of them without it.
#pragma once

#include <string_view>

struct PictureName {
    const char* name;
    const char* description;
};

// clang-format off
inline constexpr PictureName pictureNames[] = {
    {"draw", "Draw the lines of text files into PNG pictures"},
    {"dib", "Look into bitmap files, and make PNG pictures of them and back"},
    {"fonts", "Make and judge the fonts of the glyph codes"},
    {"keyboards", "List the keyboards, or show what is on the keys of one"},
    {"type", "Show what keys type on a keyboard"},
    {"applet", "List the control-panel applets in a library, or open one"},
};
// clang-format on

constexpr const char* PictureDescription(std::string_view name)
{
    for (const PictureName& row : pictureNames)
        if (row.name == name) return row.description;
    return "";
}
