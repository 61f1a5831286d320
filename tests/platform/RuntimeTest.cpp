#include "corekit/platform/Runtime.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

// Text that ends with its page, in front of one that must not be read.
class PageEnd {
public:
    PageEnd() : m_size(static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)))
    {
        m_pages = static_cast<char*>(
            ::mmap(nullptr, 2 * m_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        ::mprotect(m_pages + m_size, m_size, PROT_NONE);
    }
    PageEnd(const PageEnd&) = delete;
    PageEnd& operator=(const PageEnd&) = delete;
    ~PageEnd() { ::munmap(m_pages, 2 * m_size); }

    WCHAR* place(std::u16string_view text) const
    {
        auto* const to = reinterpret_cast<WCHAR*>(m_pages + m_size) - text.size();
        text.copy(to, text.size());
        return to;
    }

private:
    std::size_t m_size;
    char* m_pages;
};

TEST(Runtime16, NeverReadsThePageBehindTheText)
{
    const PageEnd page;
    for (std::size_t length = 0; length < 40; ++length) {
        const std::u16string text(length, u'a');
        WCHAR* const p = page.place(text + u'\0');
        EXPECT_EQ(crt16::wcslen(p), length);
        EXPECT_EQ(crt16::wcsspn(p, u"a"), length);
        EXPECT_EQ(crt16::wcscmp(p, text.c_str()), 0);
        EXPECT_GT(crt16::wcscmp((text + u'b').c_str(), p), 0);
        WCHAR* const open = page.place(text);
        EXPECT_EQ(crt16::find({open, length}, u"ab"), crt16::npos);
        EXPECT_EQ(crt16::find({open, length}, u'b'), crt16::npos);
    }
}

TEST(Runtime16, FindAgreesWithTheSlowWay)
{
    std::mt19937 random(3);
    for (int turn = 0; turn < 3000; ++turn) {
        std::u16string hay(random() % 80, u'\0'), needle(random() % 6, u'\0');
        for (WCHAR& unit : hay) unit = static_cast<WCHAR>(u'a' + random() % 3);
        for (WCHAR& unit : needle) unit = static_cast<WCHAR>(u'a' + random() % 3);
        const std::size_t from = random() % 90;
        const std::size_t expected = from > hay.size() ? crt16::npos : hay.find(needle, from);
        ASSERT_EQ(crt16::find(hay, needle, from), expected);
        ASSERT_EQ(crt16::find(hay, u'b', from), hay.find(u'b', from));
        const std::size_t span = hay.find_first_not_of(needle);
        ASSERT_EQ(crt16::wcsspn(hay.c_str(), needle.c_str()), span == hay.npos ? hay.size() : span);
        const std::size_t other = hay.find_first_of(needle);
        ASSERT_EQ(crt16::wcscspn(hay.c_str(), needle.c_str()), other == hay.npos ? hay.size() : other);
    }
}

TEST(Runtime16, ComparisonIsByUnsignedUnit)
{
    EXPECT_LT(crt16::wcscmp(u"a\x7FFF", u"a\x8000"), 0);
    EXPECT_GT(crt16::wcscmp(u"ab", u"a"), 0);
    EXPECT_EQ(crt16::wcscmp(u"ab", u"ab"), 0);
    EXPECT_EQ(crt16::wcsncmp(u"abc", u"abd", 2), 0);
    EXPECT_EQ(crt16::_wcsicmp(u"STRASSE Ärger Дом", u"strasse äRGER дОМ"), 0);
    EXPECT_LT(crt16::_wcsicmp(u"a", u"B"), 0);
    EXPECT_NE(crt16::_wcsicmp(u"a", u"ab"), 0);
}

TEST(Runtime16, CaseMapsOneUnitToOneUnit)
{
    WCHAR text[] = u"aßÿж\xD801\xDC28İı";
    EXPECT_EQ(std::u16string(crt16::_wcsupr(text)), u"AßŸЖ\xD801\xDC28İI");
    EXPECT_EQ(crt16::towlower(u'Σ'), u'σ');
    EXPECT_EQ(std::u16string(crt16::_wcsrev(text)), std::u16string(u"Iİ\xDC28\xD801ЖŸßA"));
    char narrow[] = "az\xE4_Z9";
    EXPECT_STREQ(_strupr(narrow), "AZ\xE4_Z9");
    EXPECT_STREQ(_strlwr(narrow), "az\xE4_z9");
    EXPECT_STREQ(_strrev(narrow), "9z_\xE4za");
}

TEST(Runtime, NarrowComparisonFoldsAsciiOnly)
{
    EXPECT_EQ(_stricmp("Straße", "sTRAßE"), 0);
    EXPECT_NE(_stricmp("\xC4", "\xE4"), 0);
    EXPECT_GT(_stricmp("\xC4", "z"), 0);
    EXPECT_LT(_stricmp("ab", "abc"), 0);
    EXPECT_EQ(_strnicmp("abX", "ABY", 2), 0);
}

TEST(Runtime16, NumbersStopAtTheirLimits)
{
    for (CaseRow row : CaseRows(TEST_DATA "/runtime.tsv", "number")) {
        const std::u16string text = row.Units();
        EXPECT_EQ(crt16::_wtoi(text.c_str()), row.Number()) << row.Line();
    }
    for (CaseRow row : CaseRows(TEST_DATA "/runtime.tsv", "blank")) {
        const WCHAR c = row.Number<WCHAR>();
        EXPECT_EQ(crt16::iswspace(c) != 0, row.Number() != 0) << row.Line();
    }
}

} // namespace
