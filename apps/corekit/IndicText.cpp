#include "IndicText.h"

namespace {

struct Conjunct {
    std::u16string_view spelled;
    char16_t letter;
};
constexpr Conjunct conjuncts[] = {
    {u"\u0924\u094D\u0930", 0x097C},
    {u"\u0936\u094D\u0930", 0x097D},
    {u"\u091C\u094D\u091E", 0x097E},
    {u"\u0915\u094D\u0937", 0x097F},
};

bool IsBengali(char16_t c) { return c >= 0x0980 && c <= 0x09FF; }

char16_t StoredSign(char16_t c) { return c == 0x09C7 ? 0x09D5 : c == 0x09C8 ? 0x09D1 : c; }

} // namespace

std::u16string StoredIndic(std::u16string_view text)
{
    std::u16string stored;
    stored.reserve(text.size());
    while (!text.empty()) {
        std::size_t taken = 1;
        char16_t c = StoredSign(text[0]);
        for (const Conjunct& conjunct : conjuncts)
            if (text.starts_with(conjunct.spelled)) {
                c = conjunct.letter;
                taken = conjunct.spelled.size();
            }
        if (c == u' ' && text.size() > 1 && IsBengali(text[1])) c = 0x09FF;
        stored += c;
        text.remove_prefix(taken);
    }
    return stored;
}
