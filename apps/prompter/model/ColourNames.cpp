#include "model/ColourNames.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace prompter {
namespace {

constexpr NamedColour colours[] = {
    {"White", RGB(255, 255, 255)}, {"Light grey", RGB(200, 200, 200)}, {"Grey", RGB(128, 128, 128)},
    {"Black", RGB(0, 0, 0)},       {"Yellow", RGB(255, 230, 0)},       {"Orange", RGB(255, 160, 0)},
    {"Red", RGB(220, 30, 30)},     {"Green", RGB(60, 200, 80)},        {"Cyan", RGB(80, 220, 240)},
    {"Blue", RGB(30, 60, 200)},    {"Dark blue", RGB(0, 0, 80)},       {"Magenta", RGB(220, 60, 200)},
};

bool IsSameText(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

} // namespace

std::span<const NamedColour> NamedColours() { return colours; }

std::string ColourText(COLORREF colour)
{
    const auto named = std::ranges::find(colours, colour, &NamedColour::colour);
    if (named != std::end(colours)) return named->name;
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", colour & 255, colour >> 8 & 255, colour >> 16 & 255);
    return text;
}

std::optional<COLORREF> ParseColour(std::string_view text)
{
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    for (const NamedColour& named : colours)
        if (IsSameText(named.name, text)) return named.colour;
    constexpr std::size_t digits = 6;
    if (text.size() != digits + 1 || text.front() != '#') return std::nullopt;
    unsigned value = 0;
    const char* const end = text.data() + text.size();
    if (const auto [at, error] = std::from_chars(text.data() + 1, end, value, 16);
        error != std::errc() || at != end)
        return std::nullopt;
    return RGB(value >> 16 & 255, value >> 8 & 255, value & 255);
}

} // namespace prompter
