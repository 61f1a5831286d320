#include "corekit/platform/Locale.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/text/Languages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace corekit::detail {
namespace {

std::string_view localeName()
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value != nullptr && *value != 0) return value;
    return "C";
}

// The bits of the Unicode ranges that text in the script uses, beside the two of Latin.
std::vector<unsigned> rangeBits(Script script)
{
    switch (script) {
    case Script::latin:
        return {};
    case Script::latinExtended:
        return {2};
    case Script::vietnamese:
        return {2, 3, 6, 29};
    case Script::greek:
        return {7};
    case Script::cyrillic:
        return {9};
    case Script::armenian:
        return {10};
    case Script::hebrew:
        return {11};
    case Script::arabic:
        return {13, 63, 67};
    case Script::devanagari:
        return {15};
    case Script::bengali:
        return {16};
    case Script::gurmukhi:
        return {17};
    case Script::gujarati:
        return {18};
    case Script::oriya:
        return {19};
    case Script::tamil:
        return {20};
    case Script::telugu:
        return {21};
    case Script::kannada:
        return {22};
    case Script::malayalam:
        return {23};
    case Script::thai:
        return {24};
    case Script::lao:
        return {25};
    case Script::georgian:
        return {26};
    case Script::japanese:
        return {48, 49, 50, 59};
    case Script::chinese:
        return {48, 51, 59};
    case Script::korean:
        return {48, 56, 59};
    }
    return {};
}

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
    for (const unsigned bit : rangeBits(language.script)) setBit(signature.lsUsb, bit);
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

LCID GetUserDefaultLCID() { return processLanguage().id; }

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
