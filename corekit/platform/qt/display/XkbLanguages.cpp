// The languages of X keyboard layouts, by the names of xkeyboard-config 2.35. A row with a variant stands for
// all variants that begin with it; the row without stands for the others, so it comes last of its layout.
// Languages without a row in LanguageTable.cpp are left out.
#include "corekit/platform/Locale.h"
#include "corekit/platform/qt/display/XKeyboard.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace corekit::detail {
namespace {

struct XkbLanguage {
    std::string_view layout, variant;
    LANGID language;
};

constexpr XkbLanguage xkbLanguages[] = {
    // Europe
    {"al", "", 0x041C},
    {"at", "", 0x0C07},
    {"be", "", 0x080C},
    {"bg", "", 0x0402},
    {"by", "", 0x0423},
    {"ch", "fr", 0x100C},
    {"ch", "", 0x0807},
    {"cz", "", 0x0405},
    {"de", "", 0x0407},
    {"dk", "", 0x0406},
    {"ee", "", 0x0425},
    {"es", "cat", 0x0403},
    {"es", "", 0x0C0A},
    {"fi", "", 0x040B},
    {"fo", "", 0x0438},
    {"fr", "", 0x040C},
    {"gb", "", 0x0809},
    {"gr", "", 0x0408},
    {"hr", "", 0x041A},
    {"hu", "", 0x040E},
    {"ie", "", 0x1809},
    {"is", "", 0x040F},
    {"it", "", 0x0410},
    {"lt", "", 0x0427},
    {"lv", "", 0x0426},
    {"md", "", 0x0418},
    {"mk", "", 0x042F},
    {"nl", "", 0x0413},
    {"no", "", 0x0414},
    {"pl", "", 0x0415},
    {"pt", "", 0x0816},
    {"ro", "", 0x0418},
    {"rs", "", 0x0C1A},
    {"ru", "tt", 0x0444},
    {"ru", "srp", 0x0C1A},
    {"ru", "", 0x0419},
    {"se", "", 0x041D},
    {"si", "", 0x0424},
    {"sk", "", 0x041B},
    {"tr", "", 0x041F},
    {"ua", "", 0x0422},
    // Middle East and Africa
    {"am", "", 0x042B},
    {"ara", "", 0x0401},
    {"az", "", 0x042C},
    {"cd", "", 0x040C},
    {"eg", "", 0x0C01},
    {"ge", "ru", 0x0419},
    {"ge", "", 0x0437},
    {"gh", "", 0x0409},
    {"il", "", 0x040D},
    {"iq", "", 0x0801},
    {"ir", "azb", 0x042C},
    {"ir", "", 0x0429},
    {"ke", "", 0x0441},
    {"kz", "ruskaz", 0x0419},
    {"kz", "", 0x043F},
    {"ma", "french", 0x040C},
    {"ma", "", 0x1801},
    {"ng", "", 0x0409},
    {"sy", "", 0x2801},
    {"tg", "", 0x040C},
    {"tz", "", 0x0441},
    {"uz", "", 0x0443},
    {"za", "", 0x0409},
    // Asia and Australia
    {"au", "", 0x0C09},
    {"bd", "", 0x0845},
    {"cn", "", 0x0804},
    {"id", "", 0x0421},
    {"in", "ben", 0x0445},
    {"in", "eng", 0x0409},
    {"in", "guj", 0x0447},
    {"in", "guru", 0x0446},
    {"in", "jhelum", 0x0446},
    {"in", "kan", 0x044B},
    {"in", "mal", 0x044C},
    {"in", "mar", 0x044E},
    {"in", "ori", 0x0448},
    {"in", "san", 0x044F},
    {"in", "tam", 0x0449},
    {"in", "tel", 0x044A},
    {"in", "urd", 0x0820},
    {"in", "", 0x0439},
    {"jp", "", 0x0411},
    {"kr", "", 0x0412},
    {"la", "", 0x0454},
    {"lk", "tam", 0x0449},
    {"lk", "us", 0x0409},
    {"my", "", 0x043E},
    {"np", "", 0x0461},
    {"pk", "ara", 0x0401},
    {"pk", "", 0x0420},
    {"th", "", 0x041E},
    {"tw", "", 0x0404},
    {"vn", "us", 0x0409},
    {"vn", "fr", 0x040C},
    {"vn", "", 0x042A},
    // The Americas
    {"br", "", 0x0416},
    {"ca", "eng", 0x1009},
    {"ca", "", 0x0C0C},
    {"latam", "", 0x080A},
    {"us", "rus", 0x0419},
    {"us", "", 0x0409},
};

} // namespace

LANGID languageOfGroup(const XKeyboard::Group& group)
{
    std::string_view layout(group.layout), variant(group.variant);
    layout = layout.substr(0, layout.find(':')); // "us:2": taken from the layout's second group
    // The older way to name a variant: "in(ben)".
    if (const std::size_t bracket = layout.find('('); bracket != layout.npos) {
        if (variant.empty()) variant = layout.substr(bracket + 1, layout.find(')', bracket) - bracket - 1);
        layout = layout.substr(0, bracket);
    }
    const auto* const found = std::ranges::find_if(xkbLanguages, [&](const XkbLanguage& row) {
        return row.layout == layout && variant.starts_with(row.variant);
    });
    return found != std::end(xkbLanguages) ? found->language : LOWORD(GetSystemDefaultLCID());
}

} // namespace corekit::detail
