// The languages that a text can be marked with, in the order of the list that users choose from.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

struct AvailableLocale {
    WORD locale;
    UINT nameId; // in the string table
};

inline constexpr AvailableLocale availableLocales[] = {
    {0x0400, 4295}, // No language
    {0x041C, 4296}, // Albanian
    {0x0401, 4297}, // Arabic
    {0x0421, 4298}, // Bahasa
    {0x0813, 4299}, // Belgian Dutch
    {0x080C, 4300}, // Belgian French
    {0x0416, 4301}, // Brazilian Portuguese
    {0x0402, 4302}, // Bulgarian
    {0x0403, 4303}, // Catalan
    {0x041A, 4304}, // Croato-Serbian (Latin)
    {0x0405, 4305}, // Czech
    {0x0406, 4306}, // Danish
    {0x0413, 4307}, // Dutch
    {0x0C09, 4308}, // English (Australian)
    {0x0809, 4309}, // English (U.K.)
    {0x0409, 4310}, // English (U.S.)
    {0x040B, 4311}, // Finnish
    {0x040C, 4312}, // French
    {0x0C0C, 4313}, // French (Canadian)
    {0x0407, 4314}, // German
    {0x0408, 4315}, // Greek
    {0x040D, 4316}, // Hebrew
    {0x040E, 4317}, // Hungarian
    {0x040F, 4318}, // Icelandic
    {0x0410, 4319}, // Italian
    {0x0411, 4320}, // Japanese
    {0x0412, 4321}, // Korean
    {0x0414, 4322}, // Norwegian (Bokmal)
    {0x0814, 4323}, // Norwegian (Nynorsk)
    {0x0415, 4324}, // Polish
    {0x0816, 4325}, // Portuguese
    {0x0417, 4326}, // Rhaeto-Romanic
    {0x0418, 4327}, // Romanian
    {0x0419, 4328}, // Russian
    {0x081A, 4329}, // Serbo-Croatian (Cyrillic)
    {0x0804, 4330}, // Simplified Chinese
    {0x041B, 4331}, // Slovak
    {0x040A, 4332}, // Spanish (Castilian)
    {0x080A, 4333}, // Spanish (Mexican)
    {0x041D, 4334}, // Swedish
    {0x100C, 4335}, // Swiss French
    {0x0807, 4336}, // Swiss German
    {0x0810, 4337}, // Swiss Italian
    {0x041E, 4338}, // Thai
    {0x0404, 4339}, // Traditional Chinese
    {0x041F, 4340}, // Turkish
    {0x0420, 4341}, // Urdu
    {0x0430, 4342}, // Sesotho (Sotho)
    {0x0436, 4343}, // Afrikaans
    {0x0435, 4344}, // Zulu
    {0x0434, 4345}, // Xhosa
    {0x0433, 4346}, // Venda
    {0x0432, 4347}, // Tswana
    {0x0431, 4348}, // Tsonga
    {0x0425, 4349}, // Farsi (Persian)
    {0x0820, 4169}, // Indic Urdu
};

// Languages written from right to left.
inline constexpr WORD rightToLeftLocales[] = {
    0x0401, 0x040D, 0x0420, 0x0820, 0x1401, 0x3C01, 0x0C01, 0x0801, 0x2C01, 0x3401,
    0x3001, 0x1001, 0x1801, 0x2001, 0x4001, 0x2801, 0x1C01, 0x3801, 0x2401,
};

} // namespace corekit::detail
