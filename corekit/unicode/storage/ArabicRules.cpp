#include "corekit/unicode/storage/Rules.h"
#include "corekit/unicode/tables/ArabicJoiningClasses.h"

namespace corekit::detail {
namespace {

using Joining = CArabicJoiningClasses;

constexpr char16_t lam = 0x0644, alefHamzaBelow = 0x0625, yehHamza = 0x0626;
constexpr char16_t farsiYeh = 0x06CC, yeh = 0x064A, dotlessYeh = 0x0649;
constexpr char16_t heh = 0x0647, hamzaAbove = 0x0654, hehHamza = 0x06C0, hehGoalHamza = 0x06C2;
constexpr char16_t tehMarbuta = 0x0629, tehMarbutaGoal = 0x06C3;
constexpr char16_t joiner = 0x200D;
constexpr char16_t lamAlefHamzaBelow = 0xFEF9, lamAlefHamzaBelowJoined = 0xFEFA;

// The first place from `at` on that holds no mark.
std::size_t behindMarks(std::u16string_view text, std::size_t at)
{
    while (at < text.size() && Joining::IsTransparent(text[at])) ++at;
    return at;
}

// Whether the letter before `at` connects to what follows it.
bool isJoinedTo(std::u16string_view text, std::size_t at)
{
    while (at > 0 && Joining::IsTransparent(text[at - 1])) --at;
    return at > 0 && Joining::IsLeftJoinCausing(text[at - 1]);
}

bool joinsOnward(std::u16string_view text, std::size_t at)
{
    const std::size_t next = behindMarks(text, at + 1);
    return next < text.size() && Joining::IsJoinCausing(text[next]);
}

// Lam with the yeh that bears a hamza would be drawn as the ligature of lam and alef with hamza below: a
// joiner keeps the two apart, and the ligature is kept as its own character.
std::size_t storeLam(std::u16string_view text, std::size_t at, std::u16string& stored)
{
    const std::size_t next = behindMarks(text, at + 1);
    if (next == text.size()) return 0;
    if (text[next] == yehHamza) {
        stored.append(text.substr(at, next - at)).push_back(joiner);
        return next - at;
    }
    if (text[next] != alefHamzaBelow || next != at + 1) return 0;
    if (isJoinedTo(text, at)) {
        stored.push_back(joiner); // the letter before it takes its joined form
        stored.push_back(lamAlefHamzaBelowJoined);
    } else {
        stored.push_back(lamAlefHamzaBelow);
    }
    return 2;
}

} // namespace

std::size_t storeArabic(std::u16string_view text, std::size_t at, std::u16string& stored)
{
    const auto put = [&stored](char16_t unit, std::size_t taken) {
        stored.push_back(unit);
        return taken;
    };
    switch (text[at]) {
    case farsiYeh:
        return put(joinsOnward(text, at) ? yeh : dotlessYeh, 1);
    case lam:
        return storeLam(text, at, stored);
    case heh:
        return at + 1 < text.size() && text[at + 1] == hamzaAbove ? put(hehHamza, 2) : 0;
    case hehGoalHamza:
        return put(hehHamza, 1);
    case tehMarbutaGoal:
        return isJoinedTo(text, at) ? put(tehMarbuta, 1) : 0;
    default:
        return 0;
    }
}

std::size_t restoreArabic(std::u16string_view stored, std::size_t at, TextLanguage language,
                          std::u16string& text)
{
    const auto put = [&text](std::u16string_view units, std::size_t taken) {
        text.append(units);
        return taken;
    };
    switch (stored[at]) {
    case yeh:
    case dotlessYeh:
        return language.farsiYeh ? put(u"\u06CC", 1) : 0;
    case lamAlefHamzaBelow:
    case lamAlefHamzaBelowJoined:
        return put(u"\u0644\u0625", 1);
    case joiner:
        return at + 1 < stored.size() && stored[at + 1] == lamAlefHamzaBelowJoined ? put(u"\u0644\u0625", 2)
                                                                                   : 0;
    case lam: {
        const std::size_t next = behindMarks(stored, at + 1);
        const bool keepsApart =
            next + 1 < stored.size() && stored[next] == joiner && stored[next + 1] == yehHamza;
        return keepsApart ? put(stored.substr(at, next - at), next - at + 1) : 0;
    }
    case hehHamza:
        return language.urdu ? put(u"\u06C2", 1) : 0;
    case tehMarbuta:
        return language.urdu && isJoinedTo(stored, at) ? put(u"\u06C3", 1) : 0;
    default:
        return 0;
    }
}

} // namespace corekit::detail
