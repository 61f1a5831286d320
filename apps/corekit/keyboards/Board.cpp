#include "Board.h"

#include "TextFile.h"

#include "corekit/platform/Keyboard.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace {

// One row of keys, all of one width: the place of the first, their numbers, and what is printed on them
// without and with Shift. A digit or capital is its own number.
struct Row {
    double x;
    std::vector<int> keys;
    std::u16string_view plain, shifted;
};
using Rows = std::vector<Row>;

const Rows britishRows = {
    {0,
     {VK_OEM_8, '1', '2', '3', '4', '5', '6', '7', '8', '9', '0', VK_OEM_MINUS, VK_OEM_PLUS},
     u"`1234567890-=",
     u"¬!\"£$%^&*()_+"},
    {1.5,
     {'Q', 'W', 'E', 'R', 'T', 'Y', 'U', 'I', 'O', 'P', VK_OEM_4, VK_OEM_6},
     u"qwertyuiop[]",
     u"QWERTYUIOP{}"},
    {1.75,
     {'A', 'S', 'D', 'F', 'G', 'H', 'J', 'K', 'L', VK_OEM_1, VK_OEM_3, VK_OEM_7},
     u"asdfghjkl;'#",
     u"ASDFGHJKL:@~"},
    {1.25,
     {VK_OEM_5, 'Z', 'X', 'C', 'V', 'B', 'N', 'M', VK_OEM_COMMA, VK_OEM_PERIOD, VK_OEM_2},
     u"\\zxcvbnm,./",
     u"|ZXCVBNM<>?"},
};
const Rows americanRows = {
    {0,
     {VK_OEM_3, '1', '2', '3', '4', '5', '6', '7', '8', '9', '0', VK_OEM_MINUS, VK_OEM_PLUS},
     u"`1234567890-=",
     u"~!@#$%^&*()_+"},
    {1.5,
     {'Q', 'W', 'E', 'R', 'T', 'Y', 'U', 'I', 'O', 'P', VK_OEM_4, VK_OEM_6, VK_OEM_5},
     u"qwertyuiop[]\\",
     u"QWERTYUIOP{}|"},
    {1.75,
     {'A', 'S', 'D', 'F', 'G', 'H', 'J', 'K', 'L', VK_OEM_1, VK_OEM_7},
     u"asdfghjkl;'",
     u"ASDFGHJKL:\""},
    {2.25,
     {'Z', 'X', 'C', 'V', 'B', 'N', 'M', VK_OEM_COMMA, VK_OEM_PERIOD, VK_OEM_2},
     u"zxcvbnm,./",
     u"ZXCVBNM<>?"},
};

Board Assemble(const char* title, const Rows& rows)
{
    constexpr const char* left[] = {"", "Tab", "Caps", "Shift"};
    constexpr const char* right[] = {"Backspace", "", "Enter", "Shift"};
    Board board{title, {}};
    const auto plate = [&board](const char* name, double x, double width, int row) {
        if (width > 0) board.caps.push_back({0, name, 0, 0, x, width, row});
    };
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const Row& row = rows[static_cast<std::size_t>(r)];
        plate(left[r], 0, row.x, r);
        for (std::size_t i = 0; i < row.keys.size(); ++i)
            board.caps.push_back(
                {row.keys[i], "", row.plain[i], row.shifted[i], row.x + static_cast<double>(i), 1, r});
        const double end = row.x + static_cast<double>(row.keys.size());
        if (*right[r])
            plate(right[r], end, boardWidth - end, r);
        else
            board.caps.back().width += boardWidth - end < 1 ? boardWidth - end : 0;
        if (!*right[r] && boardWidth - end >= 1) plate("Enter", end, boardWidth - end, r);
    }
    constexpr double modifier = 1.25;
    constexpr const char* bottomLeft[] = {"Ctrl", "", "Alt"};
    constexpr const char* bottomRight[] = {"AltGr", "", "", "Ctrl"};
    for (int i = 0; i < 3; ++i) plate(bottomLeft[i], i * modifier, modifier, 4);
    board.caps.push_back({VK_SPACE, "space", u' ', u' ', 3 * modifier, 5 * modifier, 4});
    for (int i = 0; i < 4; ++i) plate(bottomRight[i], (8 + i) * modifier, modifier, 4);
    return board;
}

bool TakePrefix(std::string& text, std::string_view prefix)
{
    if (text.size() <= prefix.size() || !text.starts_with(prefix)) return false;
    text.erase(0, prefix.size());
    return true;
}

// The number of a key that has a name; 0 for none.
int NamedKey(const std::string& name)
{
    constexpr std::pair<std::string_view, int> names[] = {
        {"space", VK_SPACE}, {"enter", VK_RETURN}, {"tab", 0x09}, {"backspace", VK_BACK}};
    for (const auto& [known, key] : names)
        if (name == known) return key;
    if (name.size() == 4 && name.starts_with("num") && name[3] >= '0' && name[3] <= '9')
        return VK_NUMPAD0 + (name[3] - '0');
    if (name.size() > 2 && name.size() <= 4 && name.starts_with("0x") &&
        name.find_first_not_of("0123456789abcdefABCDEF", 2) == std::string::npos)
        return std::stoi(name, nullptr, 16);
    return 0;
}

} // namespace

const Board& BoardNamed(const std::string& name)
{
    static const Board british = Assemble("British keyboard", britishRows);
    static const Board american = Assemble("United States keyboard", americanRows);
    if (name == "uk") return british;
    if (name == "us") return american;
    throw std::runtime_error("there is no board '" + name + "'; choose uk or us");
}

std::optional<KeyStroke> StrokeOf(const Board& board, char16_t character)
{
    for (const Cap& cap : board.caps) {
        if (cap.key == 0) continue;
        if (cap.plain == character) return KeyStroke{.key = cap.key};
        if (cap.shifted == character) return KeyStroke{.key = cap.key, .shift = true};
    }
    return std::nullopt;
}

KeyStroke ParseStroke(const Board& board, const std::string& name)
{
    std::string rest = name;
    std::transform(rest.begin(), rest.end(), rest.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    KeyStroke held;
    for (bool more = true; more;) {
        more = false;
        for (const auto& [prefix, flag] : {std::pair{"shift+", &KeyStroke::shift},
                                           {"ctrl+", &KeyStroke::ctrl},
                                           {"altgr+", &KeyStroke::rightAlt},
                                           {"alt+", &KeyStroke::alt}})
            if (TakePrefix(rest, prefix)) held.*flag = more = true;
    }
    held.key = NamedKey(rest);
    if (held.key != 0) return held;
    const std::u16string printed = Utf16(rest);
    const auto stroke = printed.size() == 1 ? StrokeOf(board, printed[0]) : std::nullopt;
    if (!stroke)
        throw std::runtime_error("'" + name + "' is no key of the board; name it as shift+b, space or 0xBA");
    held.key = stroke->key;
    held.shift |= stroke->shift;
    return held;
}

char16_t PlatformCharacter(const Board& board, const KeyStroke& stroke)
{
    if (stroke.ctrl || stroke.alt || stroke.rightAlt) return 0;
    if (stroke.key >= VK_NUMPAD0 && stroke.key <= VK_NUMPAD0 + 9)
        return static_cast<char16_t>(u'0' + (stroke.key - VK_NUMPAD0));
    const auto cap = std::ranges::find(board.caps, stroke.key, &Cap::key);
    return stroke.key == 0 || cap == board.caps.end() ? u'\0' : stroke.shift ? cap->shifted : cap->plain;
}
