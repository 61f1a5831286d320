// Scans of text that ends where its page ends, beside pages that nobody may touch.
#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/platform/CodePages.h"
#include "corekit/platform/Runtime.h"
#include "corekit/platform/TextScan.h"
#include "corekit/unicode/codepages/CodePageConversion.h"

#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/mman.h>

namespace {

using namespace corekit::detail;

// A page between two that end the process when they are touched.
class Guarded {
public:
    Guarded()
        : m_base(static_cast<char*>(::mmap(nullptr, 3 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)))
    {
        ::mprotect(m_base + page, page, PROT_READ | PROT_WRITE);
    }
    ~Guarded() { ::munmap(m_base, 3 * page); }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;

    // The text with its terminator, at the end of the page or at its start.
    template <class Ch>
    Ch* put(const std::basic_string<Ch>& text, bool atEnd)
    {
        const std::size_t bytes = (text.size() + 1) * sizeof(Ch);
        char* const to = m_base + page + (atEnd ? page - bytes : 0);
        std::memcpy(to, text.c_str(), bytes);
        return reinterpret_cast<Ch*>(to);
    }

private:
    static constexpr std::size_t page = 4096;
    char* m_base;
};

// Texts of all lengths that blocks of 16 to 128 bytes make a difference for.
void ForAllPlaces(const std::function<void(std::size_t length, bool atEnd)>& look)
{
    for (std::size_t length = 0; length <= 150; ++length)
        for (const bool atEnd : {true, false}) look(length, atEnd);
}

} // namespace

TEST(GuardPages, WideScansStayInTheirText)
{
    Guarded one, other;
    ForAllPlaces([&](std::size_t length, bool atEnd) {
        const std::u16string text(length, u'x');
        WCHAR* const p = one.put(text, atEnd);
        WCHAR* const q = other.put(text, atEnd);
        const int n = static_cast<int>(length);
        EXPECT_EQ(textLength(p), length);
        EXPECT_EQ(textLength(p, n), n);
        EXPECT_EQ(textLength(p, n + 35), n);
        EXPECT_EQ(textLength(p, INT_MAX), n);
        EXPECT_EQ(textLength(p, n / 2), n / 2);
        EXPECT_EQ(findInText(p, n, u'y'), -1);
        EXPECT_EQ(findInText(p, n, u"xy"), -1);
        EXPECT_EQ(mismatchInText(p, q), length);
        EXPECT_TRUE(sameUnits(p, q, length));
        EXPECT_TRUE(sameText(p, n, q, n));
        EXPECT_EQ(compareText(p, q), 0);
        EXPECT_EQ(crt16::wcslen(p), length);
        EXPECT_EQ(crt16::wcscmp(p, q), 0);
        EXPECT_EQ(crt16::wcsncmp(p, q, length + 9), 0);
        EXPECT_EQ(crt16::_wcsicmp(p, q), 0);
        EXPECT_EQ(crt16::wcsspn(p, u"x"), length);
        EXPECT_EQ(crt16::wcscspn(p, u"y"), length);
        EXPECT_EQ(crt16::find({p, length}, u'y'), crt16::npos);
        crt16::_wcsupr(q);
        crt16::_wcsrev(q);
        StringW made;
        made.Format(u"%.200s%s", p, q);
        EXPECT_EQ(made.GetLength(), 2 * n);
        EXPECT_EQ(StringW(p).Find(q), length ? -1 : 0);
        EXPECT_EQ(StringA(p).GetLength(), n);
    });
}

TEST(GuardPages, Utf8OfAllLengthsOfCharactersStaysInItsText)
{
    Guarded narrow, wide;
    std::u16string all;
    for (unsigned i = 0; i < 150; ++i) all += u"aשक"[i * i % 3];
    ForAllPlaces([&](std::size_t length, bool atEnd) {
        const std::u16string units = all.substr(0, length);
        StringA bytes;
        UnicodeToUTF8(wide.put(units, atEnd), static_cast<int>(length), bytes);
        const std::string copy(bytes.operator const char*(), static_cast<std::size_t>(bytes.GetLength()));
        StringW back;
        EXPECT_TRUE(UTF8toUnicode(narrow.put(copy, atEnd), bytes.GetLength(), back));
        EXPECT_EQ(std::u16string(back), units);
        AnsiToUnicode(CP_UTF8, back, narrow.put(copy, atEnd), bytes.GetLength());
        EXPECT_EQ(std::u16string(back), units);
    });
}

TEST(GuardPages, NarrowScansStayInTheirText)
{
    Guarded one, other;
    ForAllPlaces([&](std::size_t length, bool atEnd) {
        const std::string text(length, 'x');
        char* const p = one.put(text, atEnd);
        char* const q = other.put(text, atEnd);
        const int n = static_cast<int>(length);
        EXPECT_EQ(textLength(p), length);
        EXPECT_EQ(textLength(p, INT_MAX), n);
        EXPECT_EQ(findInText(p, n, 'y'), -1);
        EXPECT_EQ(findInText(p, n, "xy"), -1);
        EXPECT_EQ(compareText(p, q), 0);
        EXPECT_EQ(_stricmp(p, q), 0);
        EXPECT_EQ(_strnicmp(p, q, length + 9), 0);
        _strrev(_strlwr(_strupr(q)));
        StringA made;
        made.Format("%.200s%s", p, q);
        EXPECT_EQ(made.GetLength(), 2 * n);
        WCHAR wide[200];
        for (const UINT page : {CP_ACP, CP_UTF8})
            EXPECT_EQ(MultiByteToWideChar(page, 0, p, -1, wide, 200), n + 1);
        EXPECT_EQ(StringW(p).GetLength(), n);
    });
}
