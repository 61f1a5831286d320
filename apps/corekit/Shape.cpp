// corekit shape: what becomes of a text on its way to the screen.
#include "Commands.h"
#include "Names.h"
#include "Output.h"
#include "Table.h"
#include "TextFile.h"

#include "corekit/framework/Array.h"
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "corekit/unicode/storage/StoredText.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

constexpr std::size_t longest = 10000; // every row is shaped with all before it

std::string GlyphList(const StringW& glyphs, int from, int to)
{
    std::string list;
    for (int i = from; i < to; ++i) {
        const std::string shown = Visible(glyphs[i]);
        list += (list.empty() ? "" : " ") + CodePoint(glyphs[i]) + (shown.empty() ? "" : " " + shown);
    }
    return list;
}

// The glyph codes that the first `count` units give; each unit's own are what it adds.
StringW GlyphsOfPrefix(const StringW& visual, int count)
{
    StringW glyphs;
    if (count > 0) ConvertToGlyphs(visual, count, glyphs, false);
    return glyphs;
}

void ShowShape(const std::string& utf8, bool isStored)
{
    const std::u16string text = Utf16(utf8);
    if (text.size() > longest) throw std::runtime_error("the text is longer than 10000 characters");
    const int length = static_cast<int>(text.size());
    StringW visual = isStored ? ToStoredText(text.data(), length) : StringW(text.data(), length);
    CArray<int, int> order, types;
    const int level = GetBaseLevel(visual, visual.GetLength());
    ReorderToVisual(visual, order, types, level);

    TableRows rows = {{"place", "was", "code", "char", "direction", "general type", "glyph codes"}};
    int shown = 0;
    for (int i = 0; i < visual.GetLength(); ++i) {
        const StringW glyphs = GlyphsOfPrefix(visual, i + 1);
        rows.push_back({std::to_string(i), std::to_string(order[i]), CodePoint(visual[i]), Visible(visual[i]),
                        std::to_string(types[i]) + " " + BiDirectionalTypeName(types[i]),
                        GeneralTypeName(CUnicodeCharTypes::GetGeneralType(visual[i])),
                        GlyphList(glyphs, shown, glyphs.GetLength())});
        shown = glyphs.GetLength();
    }
    if (!IsJsonWanted()) Print("base direction: %s\n", level == 1 ? "right-to-left" : "left-to-right");
    PrintTable(rows, {"place", "was"});
}

} // namespace

void AddShapeCommand(CLI::App& app)
{
    auto* command = app.add_subcommand("shape", "Print visual order, types and glyph codes of a text");
    auto text = std::make_shared<std::string>();
    command->add_option("TEXT", *text, "One line of UTF-8 text, in the order it is spoken")->required();
    auto isStored = std::make_shared<bool>(false);
    command->add_flag("--stored", *isStored,
                      "Take it as this suite keeps it (docs/stored-text.md), as draw does");
    command->footer(
        "Each row is a place on the line, from the left; 'was' is its place in the text as it is spoken,\n"
        "'direction' its type after the bidirectional pass.");
    OfferJson(*command);
    command->callback([text, isStored] { ShowShape(*text, *isStored); });
}
