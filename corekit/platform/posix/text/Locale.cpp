#include "corekit/platform/Locale.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/text/Languages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

namespace corekit::detail {
namespace {

std::string_view localeName()
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value != nullptr && *value != 0) return value;
    return "C";
}

// The Unicode ranges that text in a script uses, beside the two of Latin.
struct ScriptRange {
    Script script;
    unsigned bit;
};
constexpr ScriptRange scriptRanges[] = {
    {Script::latinExtended, 2}, {Script::vietnamese, 2}, {Script::vietnamese, 3}, {Script::vietnamese, 6},
    {Script::vietnamese, 29},   {Script::greek, 7},      {Script::cyrillic, 9},   {Script::armenian, 10},
    {Script::hebrew, 11},       {Script::arabic, 13},    {Script::arabic, 63},    {Script::arabic, 67},
    {Script::devanagari, 15},   {Script::bengali, 16},   {Script::gurmukhi, 17},  {Script::gujarati, 18},
    {Script::oriya, 19},        {Script::tamil, 20},     {Script::telugu, 21},    {Script::kannada, 22},
    {Script::malayalam, 23},    {Script::thai, 24},      {Script::lao, 25},       {Script::georgian, 26},
    {Script::japanese, 48},     {Script::japanese, 49},  {Script::japanese, 50},  {Script::japanese, 59},
    {Script::chinese, 48},      {Script::chinese, 51},   {Script::chinese, 59},   {Script::korean, 48},
    {Script::korean, 56},       {Script::korean, 59},
};

struct PageBit {
    UINT page;
    unsigned bit;
};

constexpr PageBit pageBits[] = {
    {1252, 0}, {1250, 1}, {1251, 2}, {1253, 3}, {1254, 4}, {1255, 5}, {1256, 6}, {1257, 7},
    {1258, 8}, {874, 16}, {932, 17}, {936, 18}, {949, 19}, {950, 20}, {866, 49}, {862, 53},
    {857, 56}, {855, 57}, {852, 58}, {775, 59}, {737, 60}, {720, 61}, {850, 62}, {437, 63},
};

void setBit(DWORD* words, unsigned bit) { words[bit / 32] |= 1u << (bit % 32); }

LOCALESIGNATURE signatureOf(const Language& language)
{
    LOCALESIGNATURE signature{};
    for (const unsigned bit : {0u, 1u}) setBit(signature.lsUsb, bit);
    for (const ScriptRange& entry : scriptRanges)
        if (entry.script == language.script) setBit(signature.lsUsb, entry.bit);
    for (const PageBit& entry : pageBits)
        if (entry.page == language.ansiPage || entry.page == language.oemPage)
            setBit(signature.lsCsbDefault, entry.bit);
    std::ranges::copy(signature.lsCsbDefault, signature.lsCsbSupported);
    return signature;
}

constexpr LANGID languageMask = 0x3FF;

} // namespace

const Language& languageOfLocale(std::string_view name)
{
    name = name.substr(0, name.find_first_of(".@"));
    const std::size_t cut = name.find('_');
    const std::string_view code = name.substr(0, cut);
    const std::string_view territory =
        cut != std::string_view::npos ? name.substr(cut + 1) : std::string_view();
    const Language* found = &languages().front();
    for (const Language& row : languages()) {
        if (row.code != code) continue;
        if (row.territory.empty()) found = &row;
        if (!row.territory.empty() && row.territory == territory) return row;
    }
    return *found;
}

const Language* findLanguage(LANGID id)
{
    const auto rows = languages();
    if (const auto exact = std::ranges::find(rows, id, &Language::id); exact != rows.end()) return &*exact;
    const auto kin = std::ranges::find_if(
        rows, [id](const Language& row) { return (row.id & languageMask) == (id & languageMask); });
    return kin != rows.end() ? &*kin : nullptr;
}

const Language& processLanguage()
{
    static const Language& language = languageOfLocale(localeName());
    return language;
}

} // namespace corekit::detail

using namespace corekit::detail;

LCID GetSystemDefaultLCID() { return processLanguage().id; }

int GetLocaleInfoA(LCID locale, DWORD type, char* result, int size)
{
    const bool isOwn = locale == 0 || locale == 0x400 || locale == 0x800;
    const Language* language = isOwn ? &processLanguage() : findLanguage(LOWORD(locale));
    if (language == nullptr || size < 0 || (result == nullptr && size != 0))
        return fail(ERROR_INVALID_PARAMETER, 0);
    std::string fact;
    switch (type) {
    case LOCALE_FONTSIGNATURE: {
        const LOCALESIGNATURE signature = signatureOf(*language);
        fact.assign(reinterpret_cast<const char*>(&signature), sizeof signature);
        break;
    }
    case LOCALE_SENGLANGUAGE:
        fact.assign(language->englishName, std::strlen(language->englishName) + 1);
        break;
    case LOCALE_IDEFAULTANSICODEPAGE:
        fact = std::to_string(language->ansiPage) + '\0';
        break;
    default:
        return fail(ERROR_INVALID_PARAMETER, 0);
    }
    if (size == 0) return static_cast<int>(fact.size());
    if (fact.size() > static_cast<std::size_t>(size)) return fail(ERROR_INSUFFICIENT_BUFFER, 0);
    std::memcpy(result, fact.data(), fact.size());
    return static_cast<int>(fact.size());
}
