#include "RecordFiles.h"

#include "corekit/stores/MemoryStream.h"
#include "tests/support/CaseRows.h"

#include <algorithm>
#include <random>

using namespace records;

namespace {

constexpr DWORD sector = 512;

// The rule of placement, with a scan and a sort for everything.
class Model {
public:
    explicit Model(DWORD sectors) : size(sectors * sector), map{{17 * sector, (sectors - 17) * sector}} {}

    DWORD Take(DWORD bytes)
    {
        const DWORD want = Whole(bytes);
        auto entry = std::ranges::find(map, want, &VLRExtent::nSize);
        if (entry == map.end())
            entry = std::ranges::find_if(map, [want](auto& e) { return e.nSize >= want; });
        if (entry == map.end()) {
            const DWORD chunk = std::max(want, 64 * sector);
            size += chunk;
            Free({size - chunk, chunk});
            return Take(bytes);
        }
        const DWORD offset = entry->nOffset;
        if (entry->nSize <= want)
            map.erase(entry);
        else
            *entry = {offset + want, entry->nSize - want};
        return offset;
    }
    void Free(VLRExtent extent)
    {
        map.push_back(extent);
        std::ranges::sort(map, {}, &VLRExtent::nOffset);
        for (std::size_t i = 0; i + 1 < map.size();) {
            if (map[i].nOffset + map[i].nSize != map[i + 1].nOffset) {
                ++i;
                continue;
            }
            map[i].nSize += map[i + 1].nSize;
            map.erase(map.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
    }
    void Store(std::size_t record, DWORD bytes)
    {
        if (record >= index.size()) index.resize(record + 1);
        VLRExtent& entry = index[record];
        const DWORD old = Whole(entry.nSize), want = Whole(bytes);
        if (want > old) {
            if (entry.nSize) Free({entry.nOffset, old});
            entry.nOffset = Take(bytes);
        } else if (want < old) {
            Free({entry.nOffset + want, old - want});
        }
        entry.nSize = bytes;
    }
    std::size_t Add(DWORD bytes)
    {
        const auto slot = std::ranges::find(index, 0u, &VLRExtent::nSize);
        const auto record = static_cast<std::size_t>(slot - index.begin());
        if (slot == index.end()) index.push_back({});
        index[record] = {Take(bytes), bytes};
        return record;
    }
    void Delete(std::size_t record)
    {
        if (record >= index.size() || !index[record].nSize) return;
        Free({index[record].nOffset, Whole(index[record].nSize)});
        index[record] = {};
    }
    void Flush()
    {
        if (const DWORD bytes = 8 * static_cast<DWORD>(index.size()); bytes > indexArea.nSize) {
            Free(indexArea);
            indexArea = {Take(bytes), Whole(bytes)};
        }
        if (map.empty()) Free({Take(64 * sector), 64 * sector});
        if (8 * map.size() > mapArea.nSize) {
            Free(mapArea);
            const DWORD bytes = Whole(8 * static_cast<DWORD>(map.size()));
            mapArea = {Take(bytes), bytes};
        }
    }
    static DWORD Whole(DWORD bytes) { return (bytes + sector - 1) / sector * sector; }

    DWORD size;
    Extents map, index;
    VLRExtent indexArea{sector, 8 * sector}, mapArea{9 * sector, 8 * sector};
};

void ExpectOnDisk(const std::string& name, const Model& model)
{
    const Bytes file = ReadWhole(name);
    const Header h = HeaderOf(file);
    EXPECT_EQ(h.fileSize, model.size);
    EXPECT_EQ(file.size(), model.size);
    EXPECT_EQ((VLRExtent{h.indexOffset, h.indexSectors * sector}), model.indexArea);
    EXPECT_EQ((VLRExtent{h.mapOffset, h.mapSectors * sector}), model.mapArea);
    EXPECT_EQ(IndexOf(file), model.index);
    EXPECT_EQ(MapOf(file), model.map);
}

} // namespace

TEST_F(RecordFileTest, ANewFileHasItsLayoutByteForByte)
{
    Make({});
    Bytes expected(32 * 512, 0);
    const unsigned char head[48] = {0xC0, 0xE5, 0x4F, 0x11, 0xD7, 0xA3, 0xD1, 0x11, 0xBD, 0x7B, 0xFF, 0xFF,
                                    0xFF, 0xFF, 0xFF, 0xFF, 0,    0x40, 0,    0,    0,    2,    0,    0,
                                    0,    2,    0,    0,    8,    0,    0,    0,    0,    0,    0,    0,
                                    0,    0x12, 0,    0,    8,    0,    0,    0,    1,    0,    0,    0};
    const unsigned char map[8] = {0, 0x22, 0, 0, 0, 0x1E, 0, 0};
    std::memcpy(expected.data(), head, sizeof head);
    std::memcpy(expected.data() + 9 * 512, map, sizeof map);
    EXPECT_TRUE(ReadWhole(name) == expected);
}

TEST_F(RecordFileTest, EveryRecordLandsWhereAScanOfTheFreeSpaceWouldPutIt)
{
    for (const unsigned seed : {1u, 2u, 3u, 4u}) {
        std::mt19937 random(seed);
        const auto below = [&random](unsigned n) { return random() % n; };
        std::filesystem::remove(name);
        Model model(20 + seed * 30);
        CVariableLengthRecordFile file;
        ASSERT_EQ(file.CreateFileA(name.c_str(), sector, model.size), 1);
        std::vector<Bytes> held;
        const unsigned most = seed % 2 ? 300 : 3000; // many of few sectors, or fewer of many
        for (int step = 0; step < 4000; ++step) {
            const Bytes bytes = Content(step, below(8) ? 1 + below(6 * sector) : 1 + below(80 * sector));
            const auto size = static_cast<DWORD>(bytes.size());
            const unsigned record = below(most);
            if (const unsigned act = below(10); act < 4) {
                const std::size_t added = model.Add(size);
                ASSERT_EQ(static_cast<int>(added), Add(file, bytes));
                held.resize(std::max(held.size(), added + 1));
                held[added] = bytes;
            } else if (act < 6 && record < held.size()) {
                model.Store(record, size);
                file.ReplaceRecord(static_cast<int>(record), bytes.data(), size, 0);
                held[record] = bytes;
            } else if (act == 6 && record < held.size() + 20) {
                model.Store(record, size);
                Set(file, static_cast<int>(record), bytes);
                held.resize(std::max<std::size_t>(held.size(), record + 1));
                held[record] = bytes;
            } else {
                model.Delete(record);
                file.DeleteRecord(static_cast<int>(record), 0);
                if (record < held.size()) held[record].clear();
            }
            const bool isLook = step % 400 == 399;
            if (!isLook && below(20)) continue;
            model.Flush();
            file.Flush();
            if (!isLook) continue;
            ExpectOnDisk(name, model);
            if (step % 800 == 799) {
                file.Close(0);
                ASSERT_EQ(file.OpenFile(name.c_str()), 1);
            }
            for (std::size_t i = 0; i < held.size(); ++i)
                ASSERT_EQ(Get(file, static_cast<int>(i)), held[i]) << i;
        }
        file.Close(1);
        EXPECT_EQ(CVariableLengthRecordFile().CheckFile(name.c_str(), 0, 0, 0), 1);
    }
}

TEST_F(RecordFileTest, AnExactFitIsTakenOrElseTheFrontOfTheLowestLongerEntry)
{
    // Records of those sectors, the odd ones deleted; one more of `want` sectors must land at sector 17 +
    // `at`.
    const struct {
        std::vector<std::size_t> sectors;
        std::size_t want, at;
    } cases[] = {
        {{1, 3, 1, 2, 1, 2, 1}, 2, 5}, {{1, 3, 1, 5, 1}, 4, 5},   {{1, 3, 1, 5, 1}, 3, 1},
        {{1, 3, 1, 5, 1}, 6, 11},      {{1, 3, 1, 5, 1}, 65, 11}, // grows, and joins what was free at the end
    };
    for (const auto& c : cases) {
        std::filesystem::remove(name);
        std::vector<std::size_t> sizes;
        for (const std::size_t s : c.sectors) sizes.push_back(s * sector);
        Make(sizes, 40);
        CVariableLengthRecordFile file;
        ASSERT_EQ(file.OpenFile(name.c_str()), 1);
        for (std::size_t i = 1; i < sizes.size(); i += 2) file.DeleteRecord(static_cast<int>(i), 0);
        EXPECT_EQ(Add(file, Bytes(c.want * sector, 'x')), 1);
        file.Close(1);
        EXPECT_EQ(IndexOf(ReadWhole(name))[1].nOffset, (17 + c.at) * sector);
    }
}

TEST_F(RecordFileTest, TheLowestFreeNumberIsReusedAndCountsFollow)
{
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.CreateFileA(name.c_str(), sector, 32 * sector), 1);
    EXPECT_TRUE(file.IsFileEmpty());
    Set(file, 10, "eleventh");
    EXPECT_EQ(file.GetRecordCount(), 11);
    EXPECT_EQ(file.GetInUseRecordCount(), 1);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(Add(file, "x"), i);
    EXPECT_EQ(Add(file, "x"), 11);
    file.DeleteRecord(2, 0);
    file.DeleteRecord(2, 0);
    file.DeleteRecord(99, 0);
    file.DeleteRecord(-1, 0);
    EXPECT_EQ(Add(file, ""), 2);
    EXPECT_EQ(Add(file, "again"), 2) << "a record of size 0 is a free number";
    EXPECT_EQ(Get(file, 2), "again");
    EXPECT_EQ(Get(file, 99), "");
    EXPECT_EQ(file.GetRecordSize(-1), 0u);
    CMemoryStream stream;
    file.GetRecord(10, stream);
    EXPECT_EQ(Bytes(static_cast<const char*>(stream.GetMemoryBufferPointer()), stream.GetSize()), "eleventh");
}

TEST_F(RecordFileTest, WrongNumbersAndArgumentsAreRefused)
{
    CVariableLengthRecordFile file;
    for (const auto& [size, initial] :
         {std::pair{0u, 65536u}, {500u, 65536u}, {32u, 65536u}, {512u, 16u * 512}})
        EXPECT_EQ(file.CreateFileA(name.c_str(), size, initial), 0) << size;
    EXPECT_FALSE(std::filesystem::exists(name));
    ASSERT_EQ(file.CreateFileA(name.c_str(), sector, 17 * sector), 1);
    CVariableLengthRecordFile second;
    EXPECT_EQ(second.CreateFileA(name.c_str(), sector, 32 * sector), 0);
    EXPECT_EQ(second.OpenFile(name.c_str()), 0) << "open already";
    EXPECT_EQ(second.OpenFile((folder / "none").c_str()), 0);
    EXPECT_NE(Thrown([&] { second.AddRecord("x", 1, 0); }), "nothing");
    EXPECT_NE(Thrown([&] { second.SetRecord(1, "x", 1, 0); }), "nothing");
    EXPECT_EQ(second.GetRecordCount(), 0) << "closed";
    for (const int record : {-1, 1})
        EXPECT_NE(Thrown([&] { file.ReplaceRecord(record, "x", 1, 0); }), "nothing");
    for (const int record : {-1, 0x1FFFFFFF})
        EXPECT_NE(Thrown([&] { file.SetRecord(record, "x", 1, 0); }), "nothing");
    EXPECT_EQ(file.GetRecordCount(), 0);
}

TEST_F(RecordFileTest, WhatNobodyCouldReadIsNotWritten)
{
    Make({100, 200});
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    const std::vector<char> page(4096);
    const auto refusal = [&](auto act) { return Thrown([&] { act(page.data(), 0x80000000u); }); };
    const std::string expected = "[Variable Length Record File] Write failed.";
    EXPECT_TRUE(refusal([&](auto... data) { file.AddRecord(data..., 1); }).starts_with(expected));
    EXPECT_TRUE(refusal([&](auto... data) { file.SetRecord(9, data..., 1); }).starts_with(expected));
    EXPECT_TRUE(refusal([&](auto... data) { file.ReplaceRecord(0, data..., 1); }).starts_with(expected));
    EXPECT_EQ(file.GetRecordCount(), 2);
    EXPECT_EQ(Get(file, 0), Content(0, 100));
    file.Close(1);
    EXPECT_EQ(std::filesystem::file_size(name), 32u * 512);
}

TEST_F(RecordFileTest, HeadersThatCannotBeTrueAreRefused)
{
    Make({100, 2000});
    const Bytes good = ReadWhole(name);
    for (CaseRow row : CaseRows(TEST_DATA "/damaged_headers.tsv", "records")) {
        WriteWhole(name, good);
        const auto at = row.Number<std::size_t>();
        Patch(name, at, row.Number<DWORD>());
        EXPECT_EQ(CVariableLengthRecordFile().OpenFile(name.c_str()), 0) << row.Line();
    }
    for (CaseRow row : CaseRows(TEST_DATA "/damaged_headers.tsv", "records cut")) {
        WriteWhole(name, good);
        std::filesystem::resize_file(name, row.Number<std::size_t>());
        EXPECT_EQ(CVariableLengthRecordFile().OpenFile(name.c_str()), 0) << row.Line();
    }
    WriteWhole(name, good + "what a crash left behind the size that the header knows");
    EXPECT_EQ(CVariableLengthRecordFile().OpenFile(name.c_str()), 1);
}

TEST_F(RecordFileTest, DamagedEntriesNeverReachOutsideTheFile)
{
    Make({100, 100, 100});
    Patch(name, 512 + 4, 0x7FFFFFFF);
    Patch(name, 512 + 8, 0xFFFFFE00);
    const VLRExtent free{0x10000000, 0x20000000};
    Patch(name, 9 * 512, &free, sizeof free);
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    const std::string read = "[Variable Length Record File] Read Failed\n";
    EXPECT_TRUE(Thrown([&] { Get(file, 0); }).starts_with(read));
    EXPECT_TRUE(Thrown([&] { Get(file, 1); }).starts_with(read));
    EXPECT_EQ(Get(file, 2), Content(2, 100));
    EXPECT_TRUE(Thrown([&] { Add(file, "x"); }).starts_with("[Variable Length Record File] Write failed.\n"));
    file.Close(0);
    EXPECT_EQ(std::filesystem::file_size(name), 32u * 512);
}

TEST_F(RecordFileTest, AReplaceThatFindsNoRoomKeepsTheRecord)
{
    Make({300, 500});
    constexpr DWORD full = 0xFFFFFE00; // no growth by 64 sectors is possible
    std::filesystem::resize_file(name, full);
    Patch(name, 16, full);
    const VLRExtent free{20 * 512, 512};
    Patch(name, 9 * 512, &free, sizeof free);
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(name.c_str()), 1);
    EXPECT_TRUE(Thrown([&] {
                    Set(file, 0, Bytes(5000, 'x'));
                }).starts_with("[Variable Length Record File] Set File Length failed."));
    EXPECT_EQ(Get(file, 0), Content(0, 300));
    EXPECT_EQ(Add(file, "into the free sector"), 2);
    EXPECT_EQ(Get(file, 0), Content(0, 300));
}
