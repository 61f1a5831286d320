#include "RecordFiles.h"

#include <algorithm>

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

const Bytes beginning = "Checking header information\nBeginning index processing\n";
const Bytes mapping = "Checking free-space map\nChecking for lost sectors\n";
const Bytes sorry = "Sorry... cannot repair this error\n";
const Bytes busted = "Checks completed.\nThis V.L.R. File is busted.\n";
const Bytes ending = "Lost cluster checks completed\n" + busted;
const Bytes rebuilding = "FSM requires rebuild.\nBeginning FSM rebuild process...\n";

} // namespace

TEST_F(RecordFileTest, CheckOfASoundFileSaysAnythingElse)
{
    Make({100, 0, 600});
    const Bytes before = ReadAll(name);
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
    EXPECT_TRUE(ReadAll(name) == before);
}

TEST_F(RecordFileTest, CheckOfManyRecordsGivesNoSignOfLife)
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

TEST_F(RecordFileTest, DamageIsMissedOrToldInOtherWords)
{
    // Records on sectors 17, 18 and 19 to 20, free from sector 21 on. Index entries from 512 on, the map at
    // 4608.
    const Bytes record0 = "Record [       0] offset=0x00002200, size=0x00000064\n";
    const struct {
        std::size_t at;
        DWORD value;
        Bytes found, repaired; // what is printed; what follows the first lines with repair
    } cases[] = {
        {0, 1, "File is not a V.L.R. file\n", {}},
        {20,
         500,
         "Checking header information\nFATAL: Sector size is not a power of two, or below the header's "
         "size\n",
         {}},
        {16,
         33 * 512,
         "Checking header information\nFATAL: File size from header is not that of the file\n",
         {}},
        {32,
         0x20000000,
         "Checking header information\nFATAL: Index and FSM have more entries than the file has room for\n",
         {}},
        {24, 513, "Checking header information\nFATAL: Index is not sector-aligned\n", {}},
        {36, 513, "Checking header information\nFATAL: Free-space map is not sector aligned\n", {}},
        {28, 0, "Checking header information\nERROR: Index sector count is 0, should be at least 1\n", sorry},
        {40, 0, "Checking header information\nERROR: FSM sector count is 0, should be at least 1\n", sorry},
        {24, 0, "Checking header information\nERROR: Index is set on in-use data\n", sorry},
        {28, 0x00800001,
         "Checking header information\nERROR: CheckSetInUse - sector 32 is outside the file\nERROR: Index is "
         "set on in-use data\n",
         sorry},
        {36, 512, "Checking header information\nERROR: FSM is set on in-use data\n", {}},
        {520,
         18 * 512 + 1, // counts as the next sector
         beginning + record0 +
             "Record [       1] is not sector aligned\nRecord [       2] is using allocated data\n" +
             mapping +
             "ERROR: Found lost cluster at offset=0x00002400\nERROR: Found lost cluster at "
             "offset=0x00002800\n" +
             ending,
         {}},
        {520,
         17 * 512,
         beginning + record0 + "Record [       1] is using allocated data\n" + mapping +
             "ERROR: Found lost cluster at offset=0x00002400\n" + ending,
         {}},
        {524,
         0xFFFFFFFF,
         beginning + record0 +
             "ERROR: CheckSetInUse - sector 32 is outside the file\n"
             "Record [       1] is using allocated data\nRecord [       2] is using allocated data\n"
             "Checking free-space map\nERROR: FSM record 0 is using allocated data\n" +
             busted,
         {}},
        {4608, 22 * 512,
         beginning + record0 +
             "Checking free-space map\nERROR: CheckSetInUse - sector 32 is outside the file\nERROR: FSM "
             "record 0 is using allocated data\n" +
             busted,
         rebuilding},
        {4612, 10 * 512,
         beginning + record0 +
             "Checking free-space map\nChecking for lost sectors\nERROR: Found lost cluster at "
             "offset=0x00003E00\nLost cluster checks completed\n" +
             busted,
         rebuilding},
        {44, 0,
         beginning + record0 +
             "Checking free-space map\nFree-space map is empty\nChecking for lost sectors\n",
         rebuilding},
    };
    for (const auto& c : cases) {
        std::filesystem::remove(name);
        Make({100, 200, 600});
        Patch(name, c.at, c.value);
        const Bytes damaged = ReadAll(name);
        const Outcome looked = Check(name, print);
        EXPECT_EQ(looked.result, 0) << c.at;
        EXPECT_TRUE(looked.text.starts_with(c.found)) << c.at << '\n' << looked.text;
        EXPECT_TRUE(ReadAll(name) == damaged) << "a check wrote";
        EXPECT_EQ(Check(name, quiet).result, 0);
        const Outcome mended = Check(name, print | repair);
        EXPECT_EQ(mended.result, 0) << c.at;
        EXPECT_NE(mended.text.find(c.repaired), Bytes::npos) << mended.text;
    }
}

TEST_F(RecordFileTest, AreasWithoutEntriesMayLieAnywhereAndAreReported)
{
    const Bytes outside = "Checking header information\nERROR: CheckSetInUse - sector 8388607 is outside the "
                          "file\nERROR: ";
    const struct {
        DWORD offset, entries; // places in the header
        const char* area;
    } cases[] = {{24, 32, "Index"}, {36, 44, "FSM"}};
    for (const auto& c : cases) {
        std::filesystem::remove(name);
        Make({});
        Patch(name, c.offset, 0xFFFFFE00);
        Patch(name, c.entries, 0);
        const Outcome looked = Check(name, print);
        EXPECT_EQ(looked.result, 0);
        EXPECT_EQ(looked.text, outside + c.area + " is set on in-use data\n");
    }
}

TEST_F(RecordFileTest, RepairDeletesAnotherThanTheLaterOfTwoRecordsOnOneSector)
{
    Make({100, 200, 600});
    Patch(name, 520, 17 * 512);
    const Outcome mended = Check(name, print | repair);
    EXPECT_NE(mended.text.find("Record [       1] is using allocated data\nDeleting record\n"), Bytes::npos);
    EXPECT_NE(mended.text.find("Rewriting index\nChecks completed.\n"), Bytes::npos);
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    EXPECT_EQ(Get(file, 0), Content(0, 100));
    EXPECT_EQ(Get(file, 1), "");
    EXPECT_EQ(Get(file, 2), Content(2, 600));
}

TEST_F(RecordFileTest, RepairFreesTheWrongSideOfTheMap)
{
    // The map loses one sector; each repair frees what the one before has lost.
    Make({100});
    Patch(name, 9 * 512 + 4, 13 * 512);
    EXPECT_EQ(Check(name, print | repair).text.find("ERROR: Found lost cluster at offset=0x00003E00\n"),
              beginning.size() + Bytes("Record [       0] offset=0x00002200, size=0x00000064\nChecking "
                                       "free-space map\nChecking for lost sectors\n")
                                     .size());
    // Sector 9 on, where the old map's entries lay, and the lost one. The new map took the first of both.
    EXPECT_EQ(MapOf(ReadAll(name)), (Extents{{31 * 512, 512}}));
    EXPECT_EQ(HeaderOf(ReadAll(name)).mapOffset, 9u * 512);
    const Bytes lost = Check(name, print | repair).text;
    EXPECT_EQ(std::ranges::count(lost, '=') - 2, 7 + 13) << "the rest of the old area, and what was free\n"
                                                         << lost;
    EXPECT_EQ(Check(name, quiet).result, 0);
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    EXPECT_EQ(Get(file, 0), Content(0, 100));
}

TEST_F(RecordFileTest, RepairOfAMapOnARecordFreesTheRecord)
{
    // The map begins on the index's last sector and goes on over three records.
    Make(std::vector<std::size_t>(20, 512));
    Bytes file = ReadAll(name);
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
    std::ofstream(name, std::ios::binary) << file;
    EXPECT_EQ(Check(name, repair).result, 0);
    Check(name, repair);
    CVariableLengthRecordFile after;
    ASSERT_EQ(after.OpenFile(name.c_str()), 1);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(Get(after, i), Content(i, 512)) << i;
}

TEST_F(RecordFileTest, EarlyEndOfACheckForgetsTheOpenFile)
{
    Make({100});
    Patch(name, 24, 513);
    const Bytes damaged = ReadAll(name);
    {
        CVariableLengthRecordFile file;
        EXPECT_EQ(file.CheckFile(name.c_str(), 0, 0, 0), 0);
        EXPECT_TRUE(file.IsOpen());
        EXPECT_EQ(file.CheckFile(name.c_str(), 0, 0, 0), 0) << "while a file is open";
    }
    EXPECT_TRUE(ReadAll(name) == damaged) << "index and map were never read, and yet were written";
    std::filesystem::resize_file(name, 40);
    EXPECT_TRUE(Thrown([&] {
                    CVariableLengthRecordFile().CheckFile(name.c_str(), 0, 0, 0);
                }).starts_with("[Variable Length Record File] Read Failed"));
    std::filesystem::remove(name);
    EXPECT_TRUE(Check(name, print).text.starts_with("Cannot open file; "));
}
