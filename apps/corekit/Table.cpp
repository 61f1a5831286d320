#include "Table.h"

#include "Output.h"
#include "TextFile.h"

#include "corekit/platform/Console.h"
#include "corekit/platform/HarmlessText.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>

namespace {

constinit bool isJsonWanted = false;

// Columns that the text takes: non-spacing marks take none.
std::size_t Columns(const std::string& text)
{
    const std::u16string wide = Utf16(text);
    return static_cast<std::size_t>(std::count_if(
        wide.begin(), wide.end(), [](char16_t c) { return CUnicodeCharTypes::GetGeneralType(c) != 0; }));
}

std::string LinedUp(const std::vector<std::string>& row, const std::vector<std::size_t>& widths)
{
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        line += row[i];
        if (i + 1 < row.size()) line += std::string(widths[i] - Columns(row[i]) + 2, ' ');
    }
    return line;
}

void PrintForReaders(TableRows rows)
{
    using corekit::HarmlessText, corekit::LineEnds;
    if (TerminalColumns(StandardStream::Output) > 0)
        for (auto& row : rows)
            for (std::string& cell : row) cell = HarmlessText(cell, LineEnds::escaped);
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Columns(row[i]));
    }
    std::vector<std::string> rule;
    rule.reserve(widths.size());
    for (const std::size_t width : widths) rule.emplace_back(width, '-');
    for (std::size_t r = 0; r < rows.size(); ++r) {
        PrintLine(LinedUp(rows[r], widths));
        if (r == 0) PrintLine(LinedUp(rule, widths));
    }
}

std::string JsonCell(const std::string& cell, bool isNumber)
{
    if (!isNumber) return JsonText(cell);
    return cell.empty() ? "null" : cell;
}

void PrintAsJson(const TableRows& rows, std::initializer_list<std::string_view> numbers)
{
    const auto& names = rows.front();
    PrintBytes("[");
    for (std::size_t r = 1; r < rows.size(); ++r) {
        PrintBytes(r == 1 ? "\n  {" : ",\n  {");
        for (std::size_t i = 0; i < rows[r].size(); ++i)
            PrintBytes((i == 0 ? "" : ", ") + JsonText(names[i]) + ": " +
                       JsonCell(rows[r][i], std::ranges::find(numbers, names[i]) != numbers.end()));
        PrintBytes("}");
    }
    PrintBytes(rows.size() > 1 ? "\n]\n" : "]\n");
}

} // namespace

void OfferJson(CLI::App& command) { command.add_flag("--json", isJsonWanted, "Print JSON, for programs"); }

bool IsJsonWanted() { return isJsonWanted; }

std::string JsonText(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : Utf8(Utf16(std::string(text)))) {
        if (c == '"' || c == '\\') quoted += '\\';
        if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) {
            quoted += c;
            continue;
        }
        char code[8];
        std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned char>(c));
        quoted += code;
    }
    return quoted + '"';
}

void PrintTable(const TableRows& rows, std::initializer_list<std::string_view> numbers)
{
    if (isJsonWanted)
        PrintAsJson(rows, numbers);
    else
        PrintForReaders(rows);
}
