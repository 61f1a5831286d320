#include "corekit/framework/Exception.h"
#include "corekit/platform/Errors.h"
#include "corekit/stores/BlockMappedFile.h"
#include "tests/support/CaseRows.h"
#include "tests/support/FullDisk.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr DWORD none = CBlockMappedFile::NoBlock;

void Patch(std::string& bytes, std::size_t at, DWORD value) { std::memcpy(bytes.data() + at, &value, 4); }
DWORD NumberAt(const std::string& bytes, std::size_t at)
{
    DWORD value;
    std::memcpy(&value, bytes.data() + at, 4);
    return value;
}

class BlockFileTest : public testing::Test {
protected:
    TempFolder folder;
    const std::string name = folder / "file.blk";
};

class MappedFileTest : public BlockFileTest {};

} // namespace

TEST_F(MappedFileTest, TheViewShowsTheFileAndGrowsWithIt)
{
    CMappedFile file;
    EXPECT_FALSE(file.CreateFileA(name.c_str(), 0));
    EXPECT_FALSE(std::filesystem::exists(name));
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 5));
    std::memcpy(file.GetViewBase(), "start", 5);
    EXPECT_TRUE(file.ExtendFile(3));
    ASSERT_TRUE(file.ExtendFile(70000));
    EXPECT_EQ(file.GetSize(), 70000u);
    std::memcpy(file.GetViewOffset(69997), "end", 3);
    EXPECT_TRUE(file.Flush());

    CMappedFile other;
    EXPECT_FALSE(other.OpenFile(name.c_str(), 0)) << "shared";
    EXPECT_FALSE(other.CreateFileA(name.c_str(), 5)) << "overwritten";
    file.Close();
    file.EnsureClosed();
    EXPECT_EQ(ReadWhole(name), "start" + std::string(69992, '\0') + "end");

    ASSERT_TRUE(other.OpenFile(name.c_str(), 0));
    EXPECT_TRUE(other.ExtendFile(70000));
    EXPECT_FALSE(other.ExtendFile(70001)) << "read-only file grew";
    EXPECT_EQ(other.GetViewBase(), nullptr);
    ASSERT_TRUE(other.RestoreView());
    EXPECT_EQ(std::memcmp(other.GetViewBase(), "start", 5), 0);
}

TEST_F(MappedFileTest, AFileThatCannotBeAttachedStaysWithItsOwner)
{
    WriteWhole(name, "");
    const HANDLE file = CreateFileA(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    CMappedFile mapped;
    EXPECT_FALSE(mapped.AttachOpenFile(file, 0));
    EXPECT_FALSE(mapped.IsOpen());
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(mapped.OpenFile(name.c_str(), 0));
    WriteWhole(name, "x"); // nobody holds it now
    EXPECT_TRUE(mapped.OpenFile(name.c_str(), 1));
}

TEST_F(BlockFileTest, ANewFileHasItsLayoutByteForByte)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 512, 9, 100));
    EXPECT_EQ(file.AllocateSingleBlock(false), 0u);
    EXPECT_EQ(file.AllocateContiguousBytes(1025, false), 1u);
    std::memcpy(file.DataBlockPtr(3), "block 3", 7);
    file.FreeSingleBlock(1);
    EXPECT_STREQ(file.GetFileName(), name.c_str());
    file.SetClassID({0x11223344, 0x5566, 0x7788, {1, 2, 3, 4, 5, 6, 7, 8}});
    file.Close();
    EXPECT_TRUE(file.GetFileName().IsEmpty());

    std::string expected(4096 + 100 * 512, '\0');
    const unsigned char head[] = {0x40, 0xFC, 0x58, 0x07, 0x3F, 0x9C, 0xD1, 0x11,
                                  0xBD, 0x7B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, // magic
                                  0x00, 0x01, 0x00, 0x00,                         // version
                                  0x00, 0x02, 0x00, 0x00, 9,    0,    0,    0,
                                  100,  0,    0,    0, // blocks
                                  0x44, 0x33, 0x22, 0x11, 0x66, 0x55, 0x88, 0x77,
                                  1,    2,    3,    4,    5,    6,    7,    8, // class
                                  3,    0,    0,    0,    0x00, 0x04, 0x00, 0x00,
                                  0x00, 0x08, 0x00, 0x00, 0x00, 0x0C, 0x00, 0x00};
    std::memcpy(expected.data(), head, sizeof head);
    expected[1024] = 0b1101;
    expected.replace(4096 + 3 * 512, 7, "block 3");
    EXPECT_EQ(ReadWhole(name), expected);
}

TEST_F(BlockFileTest, HeadersThatCannotBeTrueAreRefused)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 1024, 10, 10));
    file.AllocateContiguousBlocks(4, false);
    file.Close();
    const std::string sound = ReadWhole(name);
    for (CaseRow row : CaseRows(TEST_DATA "/damaged_headers.tsv", "blocks")) {
        std::string bad = sound;
        const auto at = row.Number<std::size_t>();
        Patch(bad, at, row.Number<DWORD>());
        WriteWhole(name, bad);
        EXPECT_FALSE(file.OpenFile(name.c_str(), 1)) << row.Line();
        EXPECT_FALSE(file.IsOpen()) << row.Line();
    }
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{4095}, sound.size() - 1}) {
        WriteWhole(name, sound.substr(0, size));
        EXPECT_FALSE(file.OpenFile(name.c_str(), 1)) << size;
    }
    WriteWhole(name, sound + "tail");
    EXPECT_TRUE(file.OpenFile(name.c_str(), 1));
    EXPECT_TRUE(file.OpenFile(file.GetFileName(), 1));
}

TEST_F(BlockFileTest, WrongArgumentsMakeNoFileAndChangeNone)
{
    CBlockMappedFile file;
    EXPECT_FALSE(file.CreateFileA(name.c_str(), 4096, 11, 10));
    EXPECT_FALSE(file.CreateFileA(name.c_str(), 4096, 12, -1));
    EXPECT_FALSE(file.CreateFileA(name.c_str(), 4096, 12, 0x100000));
    EXPECT_FALSE(file.CreateFileA(name.c_str(), 1 << 30, 31, 1));
    EXPECT_FALSE(std::filesystem::exists(name));
    // 244 pages of map are one too many.
    EXPECT_EQ(ThrownClass([&] { file.CreateFileA(name.c_str(), 16, 4, 243 * 8192 + 1); }),
              RUNTIME_CLASS(CMemoryException));
    EXPECT_FALSE(std::filesystem::exists(name));
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 4096, 12, 3));
    EXPECT_EQ(file.GetRequiredBlockCount(0), 1u);
    EXPECT_EQ(file.GetRequiredBlockCount(4097), 2u);
    EXPECT_EQ(file.GetRequiredBlockCount(~0u), 0x100000u);
    EXPECT_EQ(ThrownClass([&] { file.AllocateContiguousBlocks(~0u, true); }),
              RUNTIME_CLASS(CNotSupportedException));
    EXPECT_EQ(file.GetBlockCount(), 3u);
}

TEST_F(BlockFileTest, BlocksComeLowestFirstAndCleared)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 256, 8, 19));
    for (DWORD i = 0; i < 19; ++i) {
        EXPECT_EQ(file.AllocateSingleBlock(false), i);
        std::memset(file.DataBlockPtr(i), 0xAA, 256);
    }
    EXPECT_EQ(file.AllocateSingleBlock(false), none);
    EXPECT_EQ(file.AllocateSingleBlock(true), 19u);
    EXPECT_EQ(file.GetBlockCount(), 83u);
    EXPECT_EQ(static_cast<BYTE*>(file.DataBlockPtr(18))[255], 0xAA);
    file.FreeContiguousBytes(4, 500);
    file.FreeContiguousBlocks(9, 3);
    file.FreeContiguousBlocks(82, 1000);
    file.FreeSingleBlock(83);
    EXPECT_EQ(file.AllocateContiguousBlocks(3, false), 9u);
    EXPECT_EQ(static_cast<BYTE*>(file.DataBlockPtr(9))[0], 0);
    EXPECT_TRUE(file.IsByteRangeAllocated(6, 6 * 256));
    EXPECT_FALSE(file.IsByteRangeAllocated(6, 15 * 256));
    EXPECT_FALSE(file.IsBlockAllocated(4));
    EXPECT_FALSE(file.IsBlockAllocated(83));
    EXPECT_TRUE(file.IsByteRangeLegal(82, 256));
    EXPECT_FALSE(file.IsByteRangeLegal(82, 257));
    EXPECT_FALSE(file.IsByteRangeLegal(~0u, ~0u));
    EXPECT_EQ(file.DataBlockPtr(83), nullptr);
    EXPECT_EQ(file.AllocateSingleBlock(false), 4u);
    EXPECT_EQ(file.AllocateContiguousBlocks(63, false), 20u);
    EXPECT_EQ(file.AllocateSingleBlock(true), 5u);
}

TEST_F(BlockFileTest, ARunAlmostAsLongAsTheFileIsOnlyHadByGrowth)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 64, 6, 20));
    EXPECT_EQ(file.AllocateContiguousBlocks(16, false), none);
    EXPECT_EQ(file.AllocateContiguousBlocks(16, true), 0u);
    EXPECT_EQ(file.GetBlockCount(), 84u);
    EXPECT_EQ(file.AllocateContiguousBlocks(300, true), 16u);
    EXPECT_EQ(file.GetBlockCount(), 340u);
}

TEST_F(BlockFileTest, TheLowestFreeRunIsTakenWhereverTheMapLies)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 16, 4, 100));
    std::vector<bool> used(100);
    std::mt19937 random(5);
    const auto lowest = [&](std::size_t count) {
        for (std::size_t first = 0, run = 0; first + run < used.size();) {
            if (used[first + run]) {
                first += run + 1;
                run = 0;
            } else if (++run == count) {
                return first;
            }
        }
        return std::size_t{none};
    };
    for (int step = 0; step < 20000; ++step) {
        const DWORD count = random() % 40 == 0 ? 1 + random() % 900 : 1 + random() % 6;
        if (random() % 8 < 5) {
            const DWORD first = random() % file.GetBlockCount();
            file.FreeContiguousBlocks(first, count);
            for (DWORD i = first; i < std::min(first + count, file.GetBlockCount()); ++i) used[i] = false;
            continue;
        }
        while (count + 4 >= used.size() || lowest(count) == none) used.resize(used.size() + 64);
        const std::size_t expected = lowest(count);
        std::fill_n(used.begin() + static_cast<int>(expected), count, true);
        ASSERT_EQ(file.AllocateContiguousBlocks(count, true), expected) << step;
        ASSERT_EQ(file.GetBlockCount(), used.size()) << step;
        if (step % 5000 == 0) {
            file.Close();
            ASSERT_TRUE(file.OpenFile(name.c_str(), 1));
        }
    }
    EXPECT_GT(used.size(), 5000u);
    EXPECT_LT(used.size(), 3u * 8192) << "the map takes no blocks for itself";
}

TEST_F(BlockFileTest, AMapThatGrowsKeepsEveryBlock)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 64, 6, 24576));
    ASSERT_EQ(file.AllocateContiguousBlocks(24500, false), 0u);
    for (DWORD i = 24500; i < 24576; ++i) ASSERT_EQ(file.AllocateSingleBlock(false), i);
    // No room in the old blocks: the page is made of the new ones.
    EXPECT_EQ(file.AllocateSingleBlock(true), 24592u);
    EXPECT_EQ(file.GetBlockCount(), 24640u);
    EXPECT_TRUE(file.IsByteRangeAllocated(24576, 16 * 64));
    EXPECT_FALSE(file.IsBlockAllocated(24593));
    file.Close();
    const std::string bytes = ReadWhole(name);
    EXPECT_EQ(NumberAt(bytes, 48), 4u);
    EXPECT_EQ(NumberAt(bytes, 64), 4096u + 24576 * 64);
    ASSERT_TRUE(file.OpenFile(name.c_str(), 1));
    EXPECT_TRUE(file.IsBlockAllocated(24592));

    file.FreeAllData();
    EXPECT_TRUE(file.IsByteRangeAllocated(0, 1024)); // the fourth page, again
    EXPECT_FALSE(file.IsBlockAllocated(16));
    EXPECT_FALSE(file.IsBlockAllocated(24592));
    file.Close();
    EXPECT_EQ(NumberAt(ReadWhole(name), 64), 4096u);
}

TEST_F(BlockFileTest, TheMapOfALargeNewFileStartsInItsFirstBlocks)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 512, 9, 40000));
    EXPECT_EQ(file.AllocateSingleBlock(false), 4u); // two pages of two blocks each
    file.Close();
    const std::string bytes = ReadWhole(name);
    EXPECT_EQ(NumberAt(bytes, 48), 5u);
    EXPECT_EQ(NumberAt(bytes, 68), 4096u + 1024);
    EXPECT_EQ(bytes[1024], 0x1F);
}

TEST_F(BlockFileTest, BlocksOfTheMapAreNeverFreed)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 512, 9, 40000)); // the map has blocks 0 to 3
    ASSERT_EQ(file.AllocateContiguousBlocks(8, false), 4u);
    file.FreeSingleBlock(3);
    file.FreeContiguousBlocks(3, 2);
    file.FreeContiguousBytes(0, 40000 * 512);
    EXPECT_TRUE(file.IsByteRangeAllocated(0, 12 * 512));
    file.FreeContiguousBlocks(4, 8);
    EXPECT_EQ(file.AllocateSingleBlock(false), 4u);
}

TEST_F(BlockFileTest, AReadOnlyFileIsNeverWrittenTo)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 64, 6, 20));
    file.AllocateSingleBlock(false);
    file.Close();
    const std::string before = ReadWhole(name);
    ASSERT_TRUE(file.OpenFile(name.c_str(), 0));
    EXPECT_EQ(file.AllocateSingleBlock(true), none);
    EXPECT_EQ(file.AllocateContiguousBlocks(2, true), none);
    file.FreeSingleBlock(0);
    file.FreeAllData();
    file.SetClassID({1, 2, 3, {}});
    EXPECT_TRUE(file.IsBlockAllocated(0));
    file.Close();
    EXPECT_EQ(ReadWhole(name), before);
    EXPECT_EQ(file.AllocateSingleBlock(true), none) << "closed";
    EXPECT_FALSE(file.IsBlockAllocated(0));
}

TEST_F(BlockFileTest, AFileThatCannotGrowKeepsItsBlocks)
{
    CBlockMappedFile file;
    ASSERT_TRUE(file.CreateFileA(name.c_str(), 4096, 12, 2));
    file.AllocateSingleBlock(false);
    file.AllocateSingleBlock(false);
    std::memcpy(file.DataBlockPtr(1), "kept", 4);
    {
        const FullDisk full(4096 * 8);
        EXPECT_EQ(ThrownClass([&] { file.AllocateSingleBlock(true); }),
                  RUNTIME_CLASS(CNotSupportedException));
    }
    ASSERT_NE(file.DataBlockPtr(1), nullptr);
    EXPECT_EQ(std::memcmp(file.DataBlockPtr(1), "kept", 4), 0);
    EXPECT_EQ(file.AllocateSingleBlock(true), 2u);
}
