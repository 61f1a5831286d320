// Any bytes and any units through every code page: the first two bytes choose it.
#include "corekit/platform/CodePages.h"
#include "corekit/unicode/codepages/CodePageConversion.h"

#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

std::vector<int>& Pages()
{
    static std::vector<int> pages{CP_ISCII89, CP_OWN_UTF8};
    return pages;
}

void Check(bool holds)
{
    if (!holds) __builtin_trap();
}

// What the library says fits a place of exactly that size, and a smaller one is not overrun.
void CheckSizes(UINT page, const StringW& wide)
{
    const int units = wide.GetLength();
    const int needed = units ? WideCharToMultiByte(page, 0, wide, units, nullptr, 0, nullptr, nullptr) : 0;
    for (int size = needed; size > 0; size /= 2) {
        std::vector<char> place(static_cast<std::size_t>(size));
        const int written = WideCharToMultiByte(page, 0, wide, units, place.data(), size, nullptr, nullptr);
        Check(written == (size == needed ? needed : 0));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const BOOL known = EnumSystemCodePagesA(
        [](char* page) { return Pages().push_back(std::atoi(page)), TRUE; }, CP_INSTALLED);
    if (size < 2 || !known) return 0;
    const int page = Pages()[(data[0] | data[1] << 8) % Pages().size()];
    const std::vector<char> bytes(data + 2, data + size);
    std::vector<WCHAR> units((size - 2) / sizeof(WCHAR));
    if (!units.empty()) std::memcpy(units.data(), data + 2, units.size() * sizeof(WCHAR));

    StringW wide, again;
    StringA narrow;
    AnsiToUnicode(page, wide, bytes.data(), static_cast<int>(bytes.size()));
    Check(wide.GetLength() <= static_cast<int>(bytes.size()));
    UnicodeToAnsi(page, narrow, units.data(), static_cast<int>(units.size()));
    if (page == CP_OWN_UTF8) {
        Check(UTF8toUnicode(narrow, narrow.GetLength(), again));
        Check(again.GetLength() == static_cast<int>(units.size()));
    } else if (page < CP_ISCII89) {
        CheckSizes(static_cast<UINT>(page), StringW(units.data(), static_cast<int>(units.size())));
    }
    return 0;
}
