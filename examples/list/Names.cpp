#include "Names.h"

#include <iterator>

namespace {

constexpr int namesOfEach = 8;

struct Script {
    const char* name;
    const char16_t* given[namesOfEach];
    const char16_t* family[namesOfEach];
};

// clang-format off
constexpr Script scripts[] = {
    {"Latin",
     {u"Anna", u"Björn", u"Chloé", u"Dafydd", u"Elif", u"Łukasz", u"Nuño", u"Zoë"},
     {u"Andersson", u"Brontë", u"Çelik", u"Dvořák", u"García", u"Müller", u"O’Neill", u"Williams"}},
    {"Arabic",
     {u"أحمد", u"ليلى", u"يوسف", u"مريم", u"خالد", u"سلمى", u"عمر", u"نور"},
     {u"الحداد", u"منصور", u"الخطيب", u"سليمان", u"النجار", u"حسين", u"العمري", u"يعقوب"}},
    {"Urdu",
     {u"علی", u"زینب", u"بلال", u"فاطمہ", u"حمزہ", u"ثنا", u"عائشہ", u"طارق"},
     {u"خان", u"چوہدری", u"قریشی", u"بھٹی", u"صدیقی", u"ملک", u"شیخ", u"راجپوت"}},
    {"Hebrew",
     {u"דוד", u"שרה", u"יעקב", u"רחל", u"משה", u"תמר", u"נועם", u"אילן"},
     {u"כהן", u"לוי", u"מזרחי", u"פרץ", u"ביטון", u"אברהם", u"פרידמן", u"שפירא"}},
    {"Devanagari",
     {u"अमित", u"प्रिया", u"राहुल", u"दीपिका", u"संजय", u"कविता", u"विक्रम", u"नेहा"},
     {u"शर्मा", u"वर्मा", u"गुप्ता", u"सिंह", u"जोशी", u"मिश्रा", u"पटेल", u"त्रिपाठी"}},
    {"Bengali",
     {u"অমিত", u"মিতা", u"সুভাষ", u"প্রিয়া", u"রবীন্দ্র", u"শর্মিলা", u"তপন", u"নন্দিনী"},
     {u"সেন", u"চট্টোপাধ্যায়", u"ঘোষ", u"দাস", u"মুখার্জী", u"রায়", u"বসু", u"হাসান"}},
    {"Tamil",
     {u"அருண்", u"கவிதா", u"செந்தில்", u"மீனாட்சி", u"முருகன்", u"லட்சுமி", u"குமார்", u"தமிழ்"},
     {u"சுப்பிரமணியம்", u"ராஜன்", u"கிருஷ்ணன்", u"நடராஜன்", u"பாண்டியன்", u"செல்வம்", u"ஐயர்", u"வேலு"}},
};
// clang-format on

} // namespace

std::vector<Name> MakeNames(int count)
{
    std::vector<Name> names;
    for (int i = 0; i < count; ++i) {
        const Script& script = scripts[i % std::size(scripts)];
        const int turn = i / static_cast<int>(std::size(scripts));
        std::u16string text = script.given[turn % namesOfEach];
        text += u' ';
        text += script.family[turn / namesOfEach % namesOfEach];
        if (const int again = turn / (namesOfEach * namesOfEach); again > 0) {
            const std::string number = std::to_string(again + 1);
            text += u' ';
            text.append(number.begin(), number.end());
        }
        names.push_back({text, script.name});
    }
    return names;
}
