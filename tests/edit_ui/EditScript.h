// Rows of edit_actions.tsv: what is done to an edit control, and what comes of it.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/platform/Types.h"
#include "corekit/unicode/ui/edit/EditModel.h"
#include "tests/support/TabbedCases.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace editscript {

struct Held {
    bool shift = false, control = false, alt = false;
};

// What a row drives. Places to click count in halves of a character: from the margin at the left (l), from
// the middle (c), or from the margin at the right to the left (r).
class Editor {
public:
    virtual ~Editor() = default;
    virtual void Key(const std::string& name, Held held) = 0;
    virtual void Type(const std::u16string& text) = 0;
    virtual void Paste(const std::u16string& text) = 0;
    virtual void Click(char from, int halves, int row, int times) = 0;
    virtual void Drag(char from, int halves, int row) = 0;
    virtual void Scroll(const std::string& how) = 0;
    virtual void Do(const std::string& what, const std::u16string& text) = 0; // replace, set, limit, upper
    virtual const corekit::detail::EditModel& Model() const = 0;

    std::string received; // to the sink
};

struct Setup {
    int columns = 1000, rows = 10;
    int alignment = 0, limit = 0;
    bool wrap = true, rightToLeftKeys = false, bidi = false, upper = false;
};

struct Row {
    int number = 0;
    Setup setup;
    std::u16string text;
    std::vector<std::string> actions;
    std::u16string after;
    std::string cursor, selection, caret, received;
};

inline std::u16string Wide(const std::string& utf8)
{
    std::u16string out;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        const int more = c < 0x80 ? 0 : c < 0xE0 ? 1 : 2;
        unsigned value = more == 0 ? c : c & (0x3Fu >> more);
        for (int k = 1; k <= more; ++k) value = value << 6 | (utf8[i + static_cast<std::size_t>(k)] & 0x3F);
        i += static_cast<std::size_t>(more) + 1;
        out += static_cast<char16_t>(value);
    }
    return out;
}

// A blank is written _, a newline \n, no text "".
inline std::u16string TextOf(std::string written)
{
    if (written == "\"\"") return {};
    for (std::size_t at; (at = written.find("\\n")) != written.npos;) written.replace(at, 2, "\n");
    for (char& c : written)
        if (c == '_') c = ' ';
    return Wide(written);
}

inline Setup SetupOf(const std::string& written)
{
    Setup setup;
    for (const std::string& word : Split(written, ' ')) {
        if (word == "nowrap")
            setup.wrap = false;
        else if (word == "centre")
            setup.alignment = 1;
        else if (word == "right")
            setup.alignment = 2;
        else if (word == "rtl-keys")
            setup.rightToLeftKeys = true;
        else if (word == "bidi")
            setup.bidi = true;
        else if (word == "upper")
            setup.upper = true;
        else if (word.starts_with("limit"))
            setup.limit = std::stoi(word.substr(5));
        else if (word.starts_with("w"))
            setup.columns = std::stoi(word.substr(1));
        else if (word.starts_with("h"))
            setup.rows = std::stoi(word.substr(1));
    }
    return setup;
}

inline std::vector<Row> Rows()
{
    std::vector<Row> rows;
    std::ifstream in(TEST_DATA "/edit_actions.tsv");
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.empty() || line[0] == '#') continue;
        const std::vector<std::string> f = Split(line, '\t');
        EXPECT_EQ(f.size(), 8u) << line;
        rows.push_back(
            {number, SetupOf(f[0]), TextOf(f[1]), Split(f[2], ' '), TextOf(f[3]), f[4], f[5], f[6], f[7]});
    }
    return rows;
}

inline void Perform(Editor& editor, const std::string& action)
{
    const std::size_t colon = action.find(':');
    if (colon == action.npos) {
        std::vector<std::string> parts = Split(action, '-');
        Held held;
        for (std::size_t i = 0; i + 1 < parts.size(); ++i)
            (parts[i] == "S" ? held.shift : parts[i] == "C" ? held.control : held.alt) = true;
        return editor.Key(parts.back(), held);
    }
    const std::string name = action.substr(0, colon), argument = action.substr(colon + 1);
    if (name == "type") return editor.Type(TextOf(argument));
    if (name == "paste") return editor.Paste(TextOf(argument));
    if (name == "scroll") return editor.Scroll(argument);
    if (name != "click" && name != "double" && name != "drag") return editor.Do(name, TextOf(argument));
    const std::size_t comma = argument.find(',');
    const int halves = std::stoi(argument.substr(1, comma - 1)), row = std::stoi(argument.substr(comma + 1));
    if (name == "drag") return editor.Drag(argument[0], halves, row);
    editor.Click(argument[0], halves, row, name == "double" ? 2 : 1);
}

// Text, cursor, selection and what the sink received; the caret for an editor of the table's measures.
enum class Measures { ofTheTable, ofAFont };
inline void Expect(const Row& row, Editor& editor, Measures measures)
{
    for (const std::string& action : row.actions) Perform(editor, action);
    const corekit::detail::EditModel& model = editor.Model();
    const std::string selection =
        model.HasSelection() ? std::to_string(model.Anchor()) + "-" + std::to_string(model.SelectionEnd())
                             : "-";
    EXPECT_EQ(std::u16string(static_cast<const WCHAR*>(model.Text())), row.after);
    EXPECT_EQ(std::to_string(model.Cursor()), row.cursor);
    EXPECT_EQ(selection, row.selection);
    EXPECT_EQ(editor.received.empty() ? "-" : editor.received, row.received);
    if (measures == Measures::ofTheTable) {
        EXPECT_EQ(std::to_string(model.Caret().x) + "," + std::to_string(model.Caret().y), row.caret);
    }
}

} // namespace editscript
