// The languages that a text can be marked with, in the order of the list that users choose from.
#pragma once

#include "corekit/platform/Types.h"
#include "corekit/resources/Messages.h"

namespace corekit::detail {

struct AvailableLocale {
    WORD locale;
    UINT nameId; // in the string table
};

inline constexpr AvailableLocale availableLocales[] = {
    {0x0400, message::languageNone},
    {0x041C, message::languageAlbanian},
    {0x0401, message::languageArabic},
    {0x0421, message::languageBahasa},
    {0x0813, message::languageBelgianDutch},
    {0x080C, message::languageBelgianFrench},
    {0x0416, message::languageBrazilianPortuguese},
    {0x0402, message::languageBulgarian},
    {0x0403, message::languageCatalan},
    {0x041A, message::languageCroatoSerbianLatin},
    {0x0405, message::languageCzech},
    {0x0406, message::languageDanish},
    {0x0413, message::languageDutch},
    {0x0C09, message::languageEnglishAustralian},
    {0x0809, message::languageEnglishUK},
    {0x0409, message::languageEnglishUS},
    {0x040B, message::languageFinnish},
    {0x040C, message::languageFrench},
    {0x0C0C, message::languageFrenchCanadian},
    {0x0407, message::languageGerman},
    {0x0408, message::languageGreek},
    {0x040D, message::languageHebrew},
    {0x040E, message::languageHungarian},
    {0x040F, message::languageIcelandic},
    {0x0410, message::languageItalian},
    {0x0411, message::languageJapanese},
    {0x0412, message::languageKorean},
    {0x0414, message::languageNorwegianBokmal},
    {0x0814, message::languageNorwegianNynorsk},
    {0x0415, message::languagePolish},
    {0x0816, message::languagePortuguese},
    {0x0417, message::languageRhaetoRomanic},
    {0x0418, message::languageRomanian},
    {0x0419, message::languageRussian},
    {0x081A, message::languageSerboCroatianCyrillic},
    {0x0804, message::languageSimplifiedChinese},
    {0x041B, message::languageSlovak},
    {0x040A, message::languageSpanishCastilian},
    {0x080A, message::languageSpanishMexican},
    {0x041D, message::languageSwedish},
    {0x100C, message::languageSwissFrench},
    {0x0807, message::languageSwissGerman},
    {0x0810, message::languageSwissItalian},
    {0x041E, message::languageThai},
    {0x0404, message::languageTraditionalChinese},
    {0x041F, message::languageTurkish},
    {0x0420, message::languageUrdu},
    {0x0430, message::languageSesotho},
    {0x0436, message::languageAfrikaans},
    {0x0435, message::languageZulu},
    {0x0434, message::languageXhosa},
    {0x0433, message::languageVenda},
    {0x0432, message::languageTswana},
    {0x0431, message::languageTsonga},
    {0x0425, message::languageFarsi},
    {0x0820, message::languageIndicUrdu},
};

// Languages written from right to left.
inline constexpr WORD rightToLeftLocales[] = {
    0x0401, 0x040D, 0x0420, 0x0820, 0x1401, 0x3C01, 0x0C01, 0x0801, 0x2C01, 0x3401,
    0x3001, 0x1001, 0x1801, 0x2001, 0x4001, 0x2801, 0x1C01, 0x3801, 0x2401,
};

} // namespace corekit::detail
