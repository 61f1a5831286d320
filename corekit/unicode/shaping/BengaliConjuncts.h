// Bengali conjuncts at positions that the layout of the fonts leaves free: the fonts are made from these
// rows, the shaping writes most of them, and stored text has the codes of the others.
#pragma once

#include "corekit/platform/Types.h"

#include <string_view>

namespace corekit::detail {

struct BengaliConjunct {
    std::u16string_view text;
    WCHAR code;
};

// clang-format off
inline constexpr BengaliConjunct bengaliConjuncts[] = {
    {u"\u09AA\u09CD\u09B0", 0xE10C}, // pa-ra
    {u"\u09A8\u09CD\u09A1", 0xE111}, // na-dda
    {u"\u09B8\u09CD\u09A5", 0xE116}, // sa-tha
    {u"\u09A8\u09CD\u099F", 0xE11C}, // na-tta
    {u"\u0997\u09CD\u09B0", 0xE122}, // ga-ra
    {u"\u0995\u09CD\u09B8", 0xE140}, // ka-sa
    {u"\u09B8\u09CD\u09A4", 0xE17B}, // sa-ta
    {u"\u09A8\u09CD\u09A4", 0xE18B}, // na-ta
    {u"\u09AE\u09CD\u09AC", 0xE18E}, // ma-ba
    {u"\u09B8\u09CD\u099F", 0xE195}, // sa-tta
    {u"\u09B7\u09CD\u099F", 0xE197}, // ssa-tta
    {u"\u09A8\u09CD\u09A6", 0xE198}, // na-da
    {u"\u09AE\u09CD\u09AA", 0xE199}, // ma-pa
    {u"\u09B8\u09CD\u09AC", 0xE19B}, // sa-ba
    {u"\u09B8\u09CD\u0995", 0xE19C}, // sa-ka
    {u"\u09AC\u09CD\u09B0", 0xE19E}, // ba-ra
    {u"\u09B8\u09CD\u09AA", 0xE1A2}, // sa-pa
    {u"\u099F\u09CD\u09B0", 0xE1A3}, // tta-ra
    {u"\u09A8\u09CD\u09A4\u09CD\u09B0", 0xE1A5}, // na-ta-ra
    {u"\u09B6\u09CD\u09AC", 0xE1A7}, // sha-ba
    {u"\u09B8\u09CD\u099F\u09CD\u09B0", 0xE1AC}, // sa-tta-ra
    {u"\u09A8\u09CD\u09A7", 0xE1B1}, // na-dha
    {u"\u09A6\u09CD\u09B0", 0xE1B4}, // da-ra
    {u"\u09A8\u09CD\u09B8", 0xE1B7}, // na-sa
    {u"\u09B6\u09CD\u09B0", 0xE1B9}, // sha-ra
    {u"\u09AB\u09CD\u09B0", 0xE1BA}, // pha-ra
    {u"\u09AE\u09CD\u09AD", 0xE1BB}, // ma-bha
    {u"\u09A4\u09CD\u09AC", 0xE1BC}, // ta-ba
    {u"\u0995\u09CD\u099F", 0xE1BD}, // ka-tta
    {u"\u09B9\u09CD\u09A8", 0xE1BE}, // ha-na
    {u"\u09B7\u09CD\u09A0", 0xE1BF}, // ssa-ttha
    {u"\u09B8\u09CD\u09B2", 0xE1C0}, // sa-la
    {u"\u09A1\u09CD\u09B0", 0xE1C2}, // dda-ra
    {u"\u09B2\u09CD\u09B2", 0xE1C3}, // la-la
    {u"\u09AA\u09CD\u09B2", 0xE1C4}, // pa-la
    {u"\u09AC\u09CD\u09B2", 0xE1C7}, // ba-la
    {u"\u09B7\u09CD\u099F\u09CD\u09B0", 0xE1C8}, // ssa-tta-ra
    {u"\u09B8\u09CD\u0995\u09CD\u09B0", 0xE1C9}, // sa-ka-ra
    {u"\u09AB\u09CD\u09B2", 0xE1CA}, // pha-la
    {u"\u09AE\u09CD\u09AA\u09CD\u09B0", 0xE1CB}, // ma-pa-ra
    {u"\u09B7\u09CD\u09A3", 0xE1CC}, // ssa-nna
    {u"\u09A8\u09CD\u09A6\u09CD\u09B0", 0xE1CD}, // na-da-ra
    {u"\u09AE\u09CD\u09AE", 0xE1CF}, // ma-ma
    {u"\u09A4\u09CD\u09A8", 0xE1D2}, // ta-na
    {u"\u09A8\u09CD\u099F\u09CD\u09B0", 0xE1D3}, // na-tta-ra
    {u"\u09B8\u09CD\u09A8", 0xE1D4}, // sa-na
    {u"\u09B9\u09CD\u09AC", 0xE1D5}, // ha-ba
    {u"\u09A7\u09CD\u09AC", 0xE1D7}, // dha-ba
    {u"\u09B8\u09CD\u09AB", 0xE1D9}, // sa-pha
    {u"\u09B8\u09CD\u09A4\u09CD\u09B0", 0xE1DA}, // sa-ta-ra
    {u"\u099C\u09CD\u099C\u09CD\u09AC", 0xE1DB}, // ja-ja-ba
    {u"\u099C\u09CD\u09AC", 0xE1DC}, // ja-ba
    {u"\u09A8\u09CD\u09AC", 0xE1DD}, // na-ba
    {u"\u09B6\u09CD\u09A8", 0xE1DE}, // sha-na
    {u"\u09A4\u09CD\u09A4\u09CD\u09AC", 0xE1DF}, // ta-ta-ba
    {u"\u0997\u09CD\u09A8", 0xE1E0}, // ga-na
    {u"\u09B7\u09CD\u0995\u09CD\u09B0", 0xE1E1}, // ssa-ka-ra
    {u"\u0997\u09CD\u09AE", 0xE1E2}, // ga-ma
    {u"\u0997\u09CD\u09B2", 0xE1E3}, // ga-la
    {u"\u09B8\u09CD\u09AA\u09CD\u09B0", 0xE1E4}, // sa-pa-ra
    {u"\u0998\u09CD\u09B0", 0xE1E7}, // gha-ra
    {u"\u09B7\u09CD\u0995", 0xE1E8}, // ssa-ka
    {u"\u09B6\u09CD\u09B2", 0xE1E9}, // sha-la
    {u"\u09B8\u09CD\u09AE", 0xE1EA}, // sa-ma
    {u"\u09B9\u09CD\u09B0", 0xE1EB}, // ha-ra
    {u"\u09A8\u09CD\u09AE", 0xE1ED}, // na-ma
    {u"\u09B7\u09CD\u09AE", 0xE1EE}, // ssa-ma
    {u"\u09A8\u09CD\u09A5", 0xE1F0}, // na-tha
    {u"\u09AE\u09CD\u09B2", 0xE1F1}, // ma-la
    {u"\u0997\u09CD\u09A7", 0xE1F2}, // ga-dha
    {u"\u09B7\u09CD\u09AA", 0xE1F3}, // ssa-pa
    {u"\u09B9\u09CD\u09B2", 0xE1F4}, // ha-la
    {u"\u0999\u09CD\u0995\u09CD\u09B7", 0xE1F5}, // nga-ka-ssa
    {u"\u09A8\u09CD\u09A4\u09C1", 0xE1F9}, // na-ta and sa-ta with u
    {u"\u09B8\u09CD\u09A4\u09C1", 0xE1FA},
    {u"\u09AC\u09CD\u09AC", 0xE1FD}, // ba-ba
    {u"\u09B8\u09CD\u0996", 0xE1FF}, // sa-kha
};
// clang-format on

} // namespace corekit::detail
