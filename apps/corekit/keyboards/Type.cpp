// corekit type: what keys type on a keyboard, named on the command line or pressed on a terminal.
#include "Commands.h"
#include "KeyboardList.h"
#include "Names.h"
#include "Output.h"
#include "PictureNames.h"
#include "ShownText.h"
#include "Table.h"
#include "Terminal.h"
#include "TextFile.h"
#include "TypedLine.h"

#include "corekit/platform/Console.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/RawTerminal.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

struct TypeOptions {
    std::string keyboard, board = "uk";
    std::vector<std::string> keys;
};

std::string CodeList(std::u16string_view text)
{
    std::string list;
    for (const char16_t c : text) list += (list.empty() ? "" : " ") + CodePoint(c);
    return list.empty() ? "-" : list;
}

void TypeNamedKeys(CKBLayout& keyboard, const Board& board, const std::vector<std::string>& keys)
{
    std::vector<KeyStroke> strokes;
    strokes.reserve(keys.size());
    for (const std::string& key : keys) strokes.push_back(ParseStroke(board, key));
    TypedLine line(keyboard, board);
    TableRows rows = {{"key", "types", "shown", "by"}};
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const auto change = line.Press(strokes[i]);
        rows.push_back({keys[i], CodeList(change.characters), Utf8(ShownText(change.characters)),
                        change.consumed ? "keyboard" : "platform"});
    }
    PrintTable(rows);
    const std::u16string glyphs = line.GetGlyphs();
    Print("text:   %s\n", CodeList(line.GetText()).c_str());
    Print("glyphs: %s\n", CodeList(glyphs).c_str());
    Print("line:   %s\n", Utf8(TerminalText(glyphs, line.GetText())).c_str());
}

// Shows the line as it is drawn and below it, as far as they fit, its glyph codes.
void ShowLive(const TypedLine& line)
{
    const std::u16string glyphs = line.GetGlyphs();
    const auto room = static_cast<std::size_t>(std::max(TerminalColumns(StandardStream::Output) - 1, 10));
    std::u16string shown = TerminalText(glyphs, line.GetText());
    if (shown.size() > room) shown.erase(0, shown.size() - room);
    std::string codes = CodeList(glyphs);
    if (codes.size() > room) codes = "..." + codes.substr(codes.size() - (room - 3));
    std::printf("\r\x1B[K%s\n\x1B[K\x1B[2m%s\x1B[0m\x1B[A\r", Utf8(shown).c_str(), codes.c_str());
    std::fflush(stdout);
}

// Leaves the line where it stands and goes on below.
void FinishLive(const TypedLine& line)
{
    std::printf("\r\x1B[K%s\n\x1B[K", Utf8(TerminalText(line.GetGlyphs(), line.GetText())).c_str());
    std::fflush(stdout);
}

// A key as a terminal sends it: a character, after an escape one with Alt, which stands for the right one.
class TerminalKeys {
public:
    explicit TerminalKeys(RawTerminal& terminal) : m_terminal(terminal) {}

    struct Key {
        char16_t character;
        bool alt;
    };
    // The next key that is a character; 0 at the end.
    Key Next()
    {
        for (;;) {
            const int byte = m_terminal.ReadByte(RawTerminal::forever);
            if (byte < 0) return {0, false};
            if (byte != escape) return {Character(byte), false};
            const int next = m_terminal.ReadByte(escapeWait);
            if (next < 0) continue; // Escape by itself
            if (next != '[' && next != 'O') return {Character(next), true};
            SkipSequence();
        }
    }

private:
    static constexpr int escape = 0x1B, escapeWait = 20; // milliseconds

    char16_t Character(int first)
    {
        std::string bytes(1, static_cast<char>(first));
        for (int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0; more > 0; --more)
            bytes += static_cast<char>(m_terminal.ReadByte(escapeWait));
        return Utf16(bytes)[0];
    }

    // The rest of what a key without a character sends.
    void SkipSequence()
    {
        constexpr int longest = 32;
        for (int i = 0; i < longest; ++i) {
            const int byte = m_terminal.ReadByte(escapeWait);
            if (byte < 0 || (byte >= 0x40 && byte <= 0x7E)) return;
        }
    }

    RawTerminal& m_terminal;
};

// The stroke for a character; none of a key that the board lacks.
KeyStroke StrokeFor(const Board& board, char16_t character)
{
    if (character == u'\r' || character == u'\n') return {.key = VK_RETURN};
    if (character == 0x7F || character == u'\b') return {.key = VK_BACK};
    return StrokeOf(board, character).value_or(KeyStroke{});
}

void TypeOnTerminal(CKBLayout& keyboard, const Board& board)
{
    constexpr char16_t interrupt = 3, end = 4;
    RawTerminal terminal;
    std::printf("%s. Enter begins a new line, Ctrl-D ends.\n", static_cast<const char*>(keyboard.GetName()));
    std::fflush(stdout);
    TerminalKeys keys(terminal);
    TypedLine line(keyboard, board);
    for (;;) {
        const auto [character, alt] = keys.Next();
        if (character == 0 || character == interrupt || character == end) break;
        KeyStroke stroke = StrokeFor(board, character);
        stroke.rightAlt = alt;
        if (stroke.key != 0)
            line.Press(stroke, alt || character < u' ' || character == 0x7F ? u'\0' : character);
        if (stroke.key == VK_RETURN) {
            FinishLive(line);
            line.Clear();
        }
        ShowLive(line);
    }
    FinishLive(line);
}

void Type(const TypeOptions& options)
{
    CKBLayout& keyboard = KeyboardNamed(options.keyboard);
    const Board& board = BoardNamed(options.board);
    if (!options.keys.empty()) return TypeNamedKeys(keyboard, board, options.keys);
    if (!RawTerminal::IsThere())
        throw std::runtime_error("name the keys to press, or run this on a terminal");
    TypeOnTerminal(keyboard, board);
}

} // namespace

void AddTypeCommand(CLI::App& app)
{
    auto* command = app.add_subcommand("type", PictureDescription("type"));
    auto options = std::make_shared<TypeOptions>();
    command->add_option("KEY", options->keys,
                        "Keys by name; without any, the keys that are pressed on the terminal");
    command->add_option("--keyboard", options->keyboard, "One of those that 'corekit keyboards' lists")
        ->required()
        ->type_name("NAME");
    command->add_option("--board", options->board, "The keys that are under the hand: uk or us")
        ->check(CLI::IsMember({"uk", "us"}))
        ->capture_default_str();
    command->footer(
        "A key is named by what is printed on it, or space, enter, tab, backspace, num0 to num9, 0xBA, with\n"
        "shift+, ctrl+, alt+ or altgr+ before it. A line of glyph codes is shown in display order.");
    OfferJson(*command);
    command->callback([options] { Type(*options); });
}
