#include "RecordFiles.h"
#include "tests/support/TabbedCases.h"

#include <algorithm>
#include <utility>

using namespace records;

namespace {

enum Flags { quiet = 0, print = 1, verbose = 2, repair = 4 };

struct Outcome {
    int result;
    Bytes text;
};

Outcome Check(const std::string& name, int flags)
{
    testing::internal::CaptureStdout();
    CVariableLengthRecordFile file;
    const int result = file.CheckFile(name.c_str(), flags & print, flags & verbose, flags & repair);
    file.Close(0);
    return {result, testing::internal::GetCapturedStdout()};
}

// The lines that a field of the table stands for.
Bytes Dialogue(Bytes field)
{
    const std::pair<const char*, const char*> parts[] = {
        {"{records}", "Checking header information|Beginning index processing|"
                      "Record [       0] offset=0x00002200, size=0x00000064|"},
        {"{lost}", "Checking free-space map|Checking for lost sectors|"},
        {"{busted}", "Lost cluster checks completed|Checks completed.|This V.L.R. File is busted.|"},
    };
    for (const auto& [sign, text] : parts)
        if (const auto at = field.find(sign); at != Bytes::npos) field.replace(at, std::strlen(sign), text);
    std::ranges::replace(field, '|', '\n');
    return field;
}

} // namespace

TEST_F(RecordFileTest, CheckOfASoundFileListsWhatItHolds)
{
    Make({100, 0, 600});
    const Bytes before = ReadWhole(name);
    EXPECT_EQ(Check(name, quiet).text, "");
    const Outcome full = Check(name, print | verbose);
    EXPECT_EQ(full.result, 1);
    // Number 1 was free again when the third record came.
    EXPECT_EQ(full.text, "Checking header information\n"
                         "Sector size: 512 bytes\n"
                         "File size from header: 16384 bytes\n"
                         "Index offset: 0x00000200\n"
                         "Index sector count: 8\n"
                         "Index entry count: 2\n"
                         "FSM Offset: 0x00001200\n"
                         "FSM Sector Count: 8\n"
                         "FSM Entry Count: 1\n"
                         "Total sectors in file: 32\n\n"
                         "Beginning index processing\n"
                         "Record [       0] offset=0x00002200, size=0x00000064\n"
                         "Record [       1] offset=0x00002400, size=0x00000258\n"
                         "Checking free-space map\n"
                         "FSM record [  0] offset=0x00002800, size=0x00001800\n"
                         "Checking for lost sectors\n"
                         "Lost cluster checks completed\n"
                         "Checks completed.\n");
    EXPECT_EQ(Check(name, repair).result, 1);
    EXPECT_TRUE(ReadWhole(name) == before);
}

TEST_F(RecordFileTest, CheckOfManyRecordsShowsEvery256thAsProgress)
{
    Make(std::vector<std::size_t>(600, 1));
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    file.DeleteRecord(256, 1);
    file.Close(1);
    const Bytes text = Check(name, print).text;
    EXPECT_EQ(std::ranges::count(text, '['), 3) << text;
    EXPECT_NE(text.find("Record [       0] offset="), Bytes::npos);
    EXPECT_NE(text.find("Record [     256] is empty\n"), Bytes::npos);
    EXPECT_NE(text.find("Record [     512] offset="), Bytes::npos);
}

TEST_F(RecordFileTest, DamageIsNamedAndACheckWithoutRepairWritesNothing)
{
    const auto cases = TabbedCases(TEST_DATA "/record_check.tsv");
    ASSERT_GE(cases.size(), 20u);
    for (const auto& fields : cases) {
        ASSERT_EQ(fields.size(), 3u) << fields[0];
        SCOPED_TRACE(fields[0]);
        std::filesystem::remove(name);
        Make({100, 200, 600});
        for (const std::string& change : Split(fields[0], ' '))
            Patch(name, std::stoul(change),
                  static_cast<DWORD>(std::stoul(change.substr(change.find('=') + 1))));
        const Bytes damaged = ReadWhole(name);
        const Outcome looked = Check(name, print);
        EXPECT_EQ(looked.result, 0);
        EXPECT_TRUE(looked.text.starts_with(Dialogue(fields[1]))) << looked.text;
        EXPECT_TRUE(ReadWhole(name) == damaged) << "a check wrote";
        EXPECT_EQ(Check(name, quiet).result, 0);
        const Outcome mended = Check(name, print | repair);
        EXPECT_EQ(mended.result, 0);
        if (fields[2] != "-") {
            EXPECT_NE(mended.text.find(Dialogue(fields[2])), Bytes::npos) << mended.text;
        }
    }
}

TEST_F(RecordFileTest, RepairDeletesTheLaterOfTwoRecordsOnOneSector)
{
    Make({100, 200, 600});
    Patch(name, 520, 17 * 512);
    Check(name, repair);
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    EXPECT_EQ(Get(file, 0), Content(0, 100));
    EXPECT_EQ(Get(file, 1), "");
    EXPECT_EQ(Get(file, 2), Content(2, 600));
}

TEST_F(RecordFileTest, EachRepairFreesWhatTheOneBeforeHasLost)
{
    // The map loses one sector; each repair frees what the one before has lost.
    Make({100});
    Patch(name, 9 * 512 + 4, 13 * 512);
    const Bytes found = Dialogue("{records}{lost}ERROR: Found lost cluster at offset=0x00003E00|");
    EXPECT_TRUE(Check(name, print | repair).text.starts_with(found));
    // Sector 9 on, where the old map's entries lay, and the lost one. The new map took the first of both.
    EXPECT_EQ(MapOf(ReadWhole(name)), (Extents{{31 * 512, 512}}));
    EXPECT_EQ(HeaderOf(ReadWhole(name)).mapOffset, 9u * 512);
    const Bytes lost = Check(name, print | repair).text;
    EXPECT_EQ(std::ranges::count(lost, '=') - 2, 7 + 13) << "the rest of the old area, and what was free\n"
                                                         << lost;
    EXPECT_EQ(Check(name, quiet).result, 0);
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    EXPECT_EQ(Get(file, 0), Content(0, 100));
}

TEST_F(RecordFileTest, RepairOfAMapOnARecordKeepsTheRecord)
{
    // The map begins on the index's last sector and goes on over three records.
    Make(std::vector<std::size_t>(20, 512));
    Bytes file = ReadWhole(name);
    file.erase(9 * 512, 8 * 512).append(8 * 512, 0); // records right behind the index
    Header header = HeaderOf(file);
    header.mapOffset = 8 * 512;
    header.mapSectors = 4;
    header.mapEntries = 4 * 64;
    std::memcpy(file.data(), &header, sizeof header);
    for (DWORD i = 0; i < 20; ++i) {
        const DWORD offset = (9 + i) * 512;
        std::memcpy(file.data() + 512 + i * 8, &offset, 4);
    }
    WriteWhole(name, file);
    EXPECT_EQ(Check(name, repair).result, 0);
    Check(name, repair);
    CVariableLengthRecordFile after;
    ASSERT_EQ(after.OpenFile(name.c_str()), 1);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(Get(after, i), Content(i, 512)) << i;
}

TEST_F(RecordFileTest, ACheckThatEndsEarlyWritesNothingAndLeavesTheFileOpen)
{
    Make({100});
    Patch(name, 24, 513);
    const Bytes damaged = ReadWhole(name);
    {
        CVariableLengthRecordFile file;
        EXPECT_EQ(file.CheckFile(name.c_str(), 0, 0, 0), 0);
        EXPECT_TRUE(file.IsOpen());
        EXPECT_EQ(file.CheckFile(name.c_str(), 0, 0, 0), 0) << "while a file is open";
    }
    EXPECT_TRUE(ReadWhole(name) == damaged) << "index and map were never read, and yet were written";
    std::filesystem::resize_file(name, 40);
    EXPECT_TRUE(Thrown([&] {
                    CVariableLengthRecordFile().CheckFile(name.c_str(), 0, 0, 0);
                }).starts_with("[Variable Length Record File] Read Failed"));
    std::filesystem::remove(name);
    EXPECT_TRUE(Check(name, print).text.starts_with("Cannot open file; "));
}
