#include "corekit/foundation/Timecode.h"

#include "corekit/foundation/Blocks.h"
#include "corekit/foundation/TimeFunctions.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/support/CaseRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {
// Three hours behind UTC all year; the offset is taken at the first use and kept.
const int zoneSet = setenv("TZ", "TST3", 1);

struct NTSC {
    NTSC() { CTimecode::SetNTSC(0); }
    ~NTSC() { CTimecode::SetPAL(); }
};

std::string Text(const CTimecode& value) { return value.MakeString().GetString(); }
} // namespace

TEST(Timecode, SumsAndDifferencesCarry)
{
    EXPECT_EQ(Text(CTimecode(0, 0, 0, 24) + CTimecode(0, 0, 0, 1)), "00:00:01:00");
    EXPECT_EQ(Text(CTimecode(23, 59, 59, 24) + CTimecode(0, 0, 0, 1)), "24:00:00:00");
    EXPECT_EQ(Text(CTimecode(1, 0, 0, 0) - CTimecode(0, 0, 0, 1)), "00:59:59:24");
    CTimecode value;
    EXPECT_EQ(value - CTimecode(0, 0, 0, 1), CTimecode::MakeInvalid());
    value -= CTimecode(0, 0, 0, 1);
    EXPECT_EQ(value, CTimecode(0, 59, 59, 24));
    value -= value;
    EXPECT_EQ(value, CTimecode());
    EXPECT_EQ(CTimecode(1, 0, 0, 0).DifferenceFrom(CTimecode(2, 0, 0, 1)), CTimecode(1, 0, 0, 1));
    EXPECT_EQ(CTimecode(1, 60, 0, 0).DifferenceFrom(CTimecode()), CTimecode::MakeInvalid());
}

TEST(Timecode, CountsFollowTheRate)
{
    EXPECT_EQ(CTimecode(1, 0, 0, 1).GetAsFrameCount(), 90001);
    EXPECT_EQ(CTimecode(0, 0, 1, 11).GetAsSeconds(), 1);
    EXPECT_EQ(CTimecode(0, 0, 1, 12).GetAsSeconds(), 2);
    EXPECT_EQ(CTimecode::MakeFromFrameCount(90001), CTimecode(1, 0, 0, 1));
    EXPECT_EQ(CTimecode::MakeFromFrameCount(256 * 90000), CTimecode());
    const NTSC ntsc;
    EXPECT_EQ(CTimecode(1, 0, 0, 1).GetAsFieldCount(), 216002);
    EXPECT_EQ(CTimecode(0, 0, 0, 14).GetAsSeconds(), 0);
    EXPECT_EQ(CTimecode(0, 0, 0, 15).GetFramesAsMilliseconds(), 500);
    EXPECT_FALSE(CTimecode(200, 0, 0, 29).IsInvalid());
}

TEST(Timecode, TextIsReadAlikeInBothWidths)
{
    for (CaseRow row : CaseRows(TEST_DATA "/times.tsv", "timecode")) {
        const std::u16string text = row.Units();
        const bool isGood = row.Number() != 0;
        CTimecode narrow, wide, expected = CTimecode::MakeInvalid();
        if (isGood) {
            const BYTE hours = row.Number<BYTE>(), minutes = row.Number<BYTE>(), seconds = row.Number<BYTE>();
            expected = CTimecode(hours, minutes, seconds, row.Number<BYTE>());
        }
        EXPECT_EQ(wide.SetFromString(text.c_str()), isGood) << row.Line();
        EXPECT_EQ(wide, expected) << row.Line();
        if (std::ranges::any_of(text, [](char16_t c) { return c > 0x7F; })) continue;
        EXPECT_EQ(narrow.SetFromString(std::string(text.begin(), text.end()).c_str()), isGood) << row.Line();
        EXPECT_EQ(narrow, expected) << row.Line();
    }
    EXPECT_EQ(Text({0, 0, 0, 25}), "--:--:--:--");
}

TEST(Timecode, RangeMayRunThroughMidnight)
{
    const CTimecode late(23, 0, 0, 0), early(1, 0, 0, 0);
    EXPECT_TRUE(CTimecode(0, 30, 0, 0).IsBetween(late, early));
    EXPECT_TRUE(CTimecode::IsBetween(early, late, early));
    EXPECT_FALSE(CTimecode(12, 0, 0, 0).IsBetween(late, early));
    EXPECT_TRUE(CTimecode(12, 0, 0, 0).IsBetween(early, late));
}

TEST(Timecode, PackedFormsAgree)
{
    const CTimecode value(0x12, 34, 56, 7);
    CTimecode back;
    back.SetFromBCD(0x18, 0x34, 0x56, 0x07);
    EXPECT_EQ(back, CTimecode(18, 34, 56, 7));
    EXPECT_EQ(back.GetAsBCD(), 0x18345607u);
    EXPECT_EQ(CTimecode::MakeInvalid().GetAsBCD(), 0xFFFFFFFFu);

    CMemoryStream stream(4, 4);
    value.WriteStream(stream);
    stream.SeekToPos(0);
    BYTE wire[4];
    stream.Read(wire, 4);
    EXPECT_EQ(wire[0], 7);
    EXPECT_EQ(wire[3], 0x12);
    stream.SeekToPos(0);
    back.ReadStream(stream);
    EXPECT_EQ(back, value);

    CByteArray blob;
    CTimecode::AddToBLOB(blob, value);
    blob.Add(99); // no whole value
    CArray<CTimecode, CTimecode&> values;
    CDWordArray words;
    CTimecode::ConvertFromBLOB(blob, values);
    CTimecode::ConvertFromBLOB(blob, words);
    ASSERT_EQ(values.GetSize(), 1);
    EXPECT_EQ(values[0], value);
    ASSERT_EQ(words.GetSize(), 1);
    EXPECT_EQ(words[0], value.GetAsDWORD());
    CTimecode::ConvertToBLOB(values, blob);
    EXPECT_EQ(blob.GetSize(), 4);
    AddToBLOB(blob, value);
    CTimecode::ConvertFromBLOB(blob, words);
    ASSERT_EQ(words.GetSize(), 2);
    EXPECT_EQ(words[1], words[0]);
}

TEST(TimeFunctions, LocalTimeIsByTheZonesOffset)
{
    EXPECT_EQ(time_UTCToLocal(20000L), 20000 - 10800);
    EXPECT_EQ(time_UTCToLocal(100L), 100 - 10800 + 86400);
    EXPECT_EQ(time_LocalToUTC(100L), 10900);
    EXPECT_EQ(time_LocalToUTC(LONG_MAX), LONG_MAX);
    EXPECT_EQ(CTimecode(1, 0, 0, 5).UTCToLocal(), CTimecode(22, 0, 0, 5));
    EXPECT_EQ(CTimecode(22, 30, 0, 5).LocalToUTC(), CTimecode(1, 30, 0, 5));
}

TEST(TimeFunctions, TimeValueAgreesWithTheRuntimeAndCarries)
{
    for (long t = 0; t < 0x7FFFFFFF; t += 86400L * 13 + 7) {
        std::tm parts{};
        ASSERT_EQ(time_GetTimeStructure(parts, t, 0), 1);
        ASSERT_EQ(time_GetTimeValue(parts, 0), t);
    }
    std::tm carried{};
    carried.tm_year = 100;
    carried.tm_mon = -1;
    carried.tm_mday = 32; // the first of January 2000
    EXPECT_EQ(time_GetTimeValue(carried, 0), 946684800);
    EXPECT_EQ(carried.tm_mon, 0);
    EXPECT_EQ(carried.tm_mday, 1);
    EXPECT_EQ(time_GetTimeValue(carried, 1), 946684800 + 10800);
    for (CaseRow row : CaseRows(TEST_DATA "/times.tsv", "refused")) {
        std::tm parts{};
        for (int std::tm::*part : {&std::tm::tm_year, &std::tm::tm_mon, &std::tm::tm_mday, &std::tm::tm_hour})
            parts.*part = row.Number();
        EXPECT_EQ(time_GetTimeValue(parts, 0), -1) << row.Line();
    }
    std::tm untouched{};
    EXPECT_EQ(time_GetTimeStructure(untouched, -5, 0), 0);
}

TEST(TimeFunctions, TimesAreFormattedInEveryStringClass)
{
    CString framework;
    StringA narrow;
    StringW wide;
    time_FormatString(framework, "%Y-%m-%d", 946684800, 0);
    time_FormatString(narrow, "%H:%M", 946684800, 1);
    time_FormatString(wide, u"\u0628 %Y%%\u4E00%d", 946684800, 0);
    EXPECT_EQ(framework, "2000-01-01");
    EXPECT_TRUE(narrow == "21:00");
    EXPECT_TRUE(wide == u"\u0628 2000%\u4E0001");
    time_FormatString(framework, std::string(5000, 'x').c_str(), 0, 0);
    EXPECT_TRUE(framework.IsEmpty());
}

TEST(TimeFunctions, FileTimesCountFrom1601)
{
    const _FILETIME epoch = FileTimeFromUnixTime(0);
    EXPECT_EQ(static_cast<DWORDLONG>(epoch.dwHighDateTime) << 32 | epoch.dwLowDateTime, 116444736000000000u);
    for (long t : {0L, 1L, 946684800L, -11644473600L, 910692730086L})
        EXPECT_EQ(UnixTimeFromFileTime(FileTimeFromUnixTime(t)), t);
}
