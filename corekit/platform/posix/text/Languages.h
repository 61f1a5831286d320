// What is known of languages: their numbers, code pages and scripts. See LanguageTable.cpp for the rows.
#pragma once

#include "corekit/platform/Types.h"

#include <span>
#include <string_view>

namespace corekit::detail {

// The script beside Latin that a language is written in; tells which Unicode ranges its fonts need.
enum class Script : BYTE {
    latin,
    latinExtended,
    vietnamese,
    greek,
    cyrillic,
    armenian,
    hebrew,
    arabic,
    devanagari,
    bengali,
    gurmukhi,
    gujarati,
    oriya,
    tamil,
    telugu,
    kannada,
    malayalam,
    thai,
    lao,
    georgian,
    japanese,
    chinese,
    korean
};

struct Language {
    std::string_view code;      // as in the locale's name: "pt"
    std::string_view territory; // "BR"; empty for the variety that stands for all others
    LANGID id;
    UINT ansiPage;
    UINT oemPage;
    Script script;
    const char* englishName;
};

std::span<const Language> languages();

// The process's language.
const Language& processLanguage();
// By number, the plain variety where that one is not listed; null for an unknown language.
const Language* findLanguage(LANGID id);
// By a locale name such as "pt_BR.UTF-8"; US English for one that is unknown.
const Language& languageOfLocale(std::string_view name);

} // namespace corekit::detail
