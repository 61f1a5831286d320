#include "model/SameLines.h"

#include <algorithm>

namespace prompter {
namespace {

bool BeginsLine(std::u16string_view text, std::size_t at) { return at == 0 || text[at - 1] == u'\n'; }

} // namespace

SameLines FindSameLines(std::u16string_view before, std::u16string_view after)
{
    const std::size_t most = std::min(before.size(), after.size());
    const auto differs =
        std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(most), after.begin());
    auto head = static_cast<std::size_t>(differs.first - before.begin());
    while (!BeginsLine(before, head)) --head;
    std::size_t tail = 0;
    while (tail < most - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
    while (tail > 0 && !(BeginsLine(before, before.size() - tail) && BeginsLine(after, after.size() - tail)))
        --tail;
    return {head, tail};
}

std::size_t CountLineEnds(std::u16string_view text)
{
    return static_cast<std::size_t>(std::ranges::count(text, u'\n'));
}

std::size_t LineStart(std::u16string_view text, std::size_t line)
{
    std::size_t at = 0;
    for (; line > 0; --line) {
        const std::size_t end = text.find(u'\n', at);
        if (end == text.npos) return text.size();
        at = end + 1;
    }
    return at;
}

} // namespace prompter
