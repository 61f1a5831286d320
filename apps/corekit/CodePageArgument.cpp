#include "CodePageArgument.h"

#include "corekit/platform/CodePages.h"
#include "corekit/platform/Runtime.h"
#include "corekit/unicode/codepages/CodePageNameRows.h"
#include "corekit/unicode/codepages/CodePageNames.h"

#include "CodePageAliases.h"
#include "Table.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <stdexcept>

namespace {

bool IsOwn(int page) { return page == CP_ISCII89 || page == CP_OWN_UTF8; }

bool CanConvert(int page)
{
    CPINFO info;
    return IsOwn(page) || page == utf16Page || (page < 0x10000 && GetCPInfo(static_cast<UINT>(page), &info));
}

std::optional<int> Number(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0) return {};
    return number;
}

bool Same(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && _strnicmp(a.data(), b.data(), a.size()) == 0;
}

// The number behind a prefix, moved by `offset`.
std::optional<int> Prefixed(std::string_view text, std::string_view prefix, int offset)
{
    if (!Same(text.substr(0, prefix.size()), prefix)) return {};
    const auto number = Number(text.substr(prefix.size()));
    return number ? std::optional(*number + offset) : std::nullopt;
}

std::optional<int> Find(std::string_view text)
{
    if (const auto number = Number(text)) return number;
    for (const CodePageAlias& alias : codePageAliases)
        if (Same(text, alias.name)) return alias.page;
    for (const std::string_view prefix : {"cp", "ibm", "ibm-", "windows-"})
        if (const auto page = Prefixed(text, prefix, 0)) return page;
    if (const auto page = Prefixed(text, "iso-8859-", 28590)) return page;
    for (const auto& row : corekit::detail::codePageNameRows)
        if (Same(text, static_cast<const char*>(GetCodePageName(row.codePage))))
            return static_cast<int>(row.codePage);
    return {};
}

std::string ShownName(int page)
{
    const auto alias = std::ranges::find(codePageAliases, page, &CodePageAlias::page);
    if (alias != std::end(codePageAliases)) return std::string(alias->name);
    if (page > 28590 && page < 28620) return "iso-8859-" + std::to_string(page - 28590);
    return (page >= 1250 && page <= 1258 ? "windows-" : "cp") + std::to_string(page);
}

std::map<int, std::string> listed; // texts by number, filled by the enumeration

BOOL List(char* page) { return listed.try_emplace(*Number(page)), TRUE; }

} // namespace

int CodePageFrom(std::string_view text)
{
    const auto page = Find(text);
    if (!page)
        throw std::runtime_error("no code page is called " + std::string(text) + " (see convert --list)");
    if (!CanConvert(*page))
        throw std::runtime_error("code page " + std::to_string(*page) +
                                 " cannot be converted on this machine");
    return *page;
}

void PrintCodePages()
{
    listed.clear();
    EnumSystemCodePagesA(List, CP_INSTALLED);
    for (const auto& row : corekit::detail::codePageNameRows)
        listed[static_cast<int>(row.codePage)] = GetCodePageName(row.codePage);
    for (int i = 0; i < cconvGetCPCount(); ++i) listed[cconvGetCodePage(i)] = cconvGetCPName(i);
    TableRows rows{{"number", "name", "converts", "text"}};
    for (const auto& [page, text] : listed) {
        const bool converts = CanConvert(page);
        rows.push_back({std::to_string(page), converts ? ShownName(page) : "-",
                        !converts            ? "no"
                        : page == CP_ISCII89 ? "from"
                                             : "both ways",
                        text});
    }
    PrintTable(rows, {"number"});
}
