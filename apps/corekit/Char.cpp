// corekit char: one row of the character database.
#include "Commands.h"
#include "Names.h"
#include "Table.h"
#include "TextFile.h"

#include "corekit/foundation/StringW.h"
#include "corekit/unicode/tables/ArabicJoiningClasses.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <stdexcept>

namespace {

// "U+0628", "0x628", "628" (hexadecimal), or the character itself.
char16_t ParseCodePoint(const std::string& text)
{
    const std::u16string wide = Utf16(text);
    if (wide.size() == 1) return wide[0];
    const bool prefixed =
        text.starts_with("U+") || text.starts_with("u+") || text.starts_with("0x") || text.starts_with("0X");
    const std::string digits = prefixed ? text.substr(2) : text;
    if (digits.empty() || digits.size() > 6 ||
        digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        throw std::runtime_error("'" + text + "' is no code point; write U+0628, 628 or the character");
    const unsigned long value = std::stoul(digits, nullptr, 16);
    if (value > 0xFFFF)
        throw std::runtime_error("U+" + digits + " lies above U+FFFF, where this library knows nothing");
    return static_cast<char16_t>(value);
}

std::string Mapping(WORD target)
{
    return target == 0xFFFF ? "-" : CodePoint(target) + " " + Visible(target);
}
std::string Numeric(int value) { return value < 0 ? "-" : std::to_string(value); }

std::string JoiningForms(char16_t c)
{
    using Joining = CArabicJoiningClasses;
    std::string forms;
    const struct {
        const char* name;
        WORD form;
    } all[] = {{"isolated", Joining::NominalForm(c)},
               {"right", Joining::RightForm(c)},
               {"left", Joining::LeftForm(c)},
               {"medial", Joining::MedialForm(c)}};
    for (const auto& [name, form] : all)
        forms += std::string(forms.empty() ? "" : ", ") + name + " " + CodePoint(form);
    return forms;
}

void ShowChar(const std::string& text)
{
    const char16_t c = ParseCodePoint(text);
    const auto& row = CUnicodeCharTypes::m_tbl[c >> 8][c & 0xFF];
    const int joining = CArabicJoiningClasses::GetJoiningType(c);
    TableRows rows = {
        {"field", "value"},
        {"code point", CodePoint(c) + " " + Visible(c)},
        {"general type", std::to_string(row.generalType) + " " + GeneralTypeName(row.generalType)},
        {"bidirectional type",
         std::to_string(row.biDirectionalType) + " " + BiDirectionalTypeName(row.biDirectionalType)},
        {"decimal value", Numeric(row.decimalValue)},
        {"digit value", Numeric(row.digitValue)},
        {"mirrored", row.mirrored ? "yes" : "no"},
        {"upper case", Mapping(row.upperCase)},
        {"lower case", Mapping(row.lowerCase)},
        {"title case", Mapping(row.titleCase)},
        {"joining class", std::to_string(joining) + " " + JoiningTypeName(joining)},
    };
    if ((c & 0xFF00) == 0x0600) rows.push_back({"joining forms", JoiningForms(c)});
    PrintTable(rows);
}

} // namespace

void AddCharCommand(CLI::App& app)
{
    auto* command = app.add_subcommand("char", "Print the database row and joining class of a character");
    auto text = std::make_shared<std::string>();
    command->add_option("CODE", *text, "U+0628, 628 (hexadecimal) or the character itself")->required();
    OfferJson(*command);
    command->callback([text] { ShowChar(*text); });
}
