// Record files, block files and word lists.
#include "growth.h"
#include "workload.h"

#include "corekit/platform/Files.h"
#include "corekit/stores/BlockMappedFile.h"
#include "corekit/stores/VariableLengthRecordFile.h"
#include "corekit/stores/WordListFile.h"

#include <filesystem>
#include <memory>

namespace {

using growth::Curve;
using growth::Microseconds;

std::string Fresh(const char* leaf)
{
    const std::string name = workload::scratch(leaf);
    std::filesystem::remove(name);
    return name;
}

// --- record files

constexpr std::size_t few = 1000; // operations among many entries

class Records {
public:
    explicit Records(std::size_t count)
    {
        if (!m_file.CreateFileA(Fresh("growth.vlr").c_str(), sectorSize, 32 * sectorSize)) std::abort();
        for (std::size_t i = 0; i < count; ++i) Add();
    }
    ~Records() { m_file.Close(0); }

    CVariableLengthRecordFile* operator->() { return &m_file; }
    int Add(int bFlush = 0) { return m_file.AddRecord(m_bytes, 2 * sectorSize, bFlush); }
    void Replace(int record, DWORD size) { m_file.ReplaceRecord(record, m_bytes, size, 0); }

    static constexpr DWORD sectorSize = 64;

private:
    CVariableLengthRecordFile m_file;
    BYTE m_bytes[3 * sectorSize] = {};
};

const Curve addRecord({"records: add", 5}, [](std::size_t count) {
    Records records(0);
    return Microseconds(count, [&](std::size_t) { records.Add(); });
});

const Curve addAndFlush({"records: add with flush each", 5}, [](std::size_t count) {
    Records records(count);
    records->Flush();
    return Microseconds(20 * few, [&](std::size_t) { records.Add(1); }); // the index moves now and then
});

const Curve deleteAndAdd({"records: delete and add again", 5}, [](std::size_t count) {
    Records records(count);
    const auto order = workload::permutation(static_cast<std::uint32_t>(count), 1);
    return Microseconds(few, [&](std::size_t i) {
        records->DeleteRecord(static_cast<int>(order[i]), 0);
        records.Add();
    });
});

// Every second number is free, and the first search has sorted what that left.
void MakeHoles(Records& records, std::size_t count)
{
    for (std::size_t i = 0; i < count; i += 2) records->DeleteRecord(static_cast<int>(i), 0);
    records.Replace(1, 3 * Records::sectorSize);
    records->Flush();
}

const Curve replaceRecord({"records: replace by one that moves, among holes", 5}, [](std::size_t count) {
    Records records(count);
    MakeHoles(records, count);
    return Microseconds(few / 4, [&](std::size_t i) {
        records.Replace(static_cast<int>(2 * i + 3), Records::sectorSize);
        records.Replace(static_cast<int>(2 * i + 3), 2 * Records::sectorSize);
    });
});

const Curve replaceAndFlush({"records: replace among holes with flush each", 5}, [](std::size_t count) {
    Records records(count);
    MakeHoles(records, count);
    return Microseconds(few / 4, [&](std::size_t i) {
        records.Replace(static_cast<int>(2 * i + 3), 2 * Records::sectorSize);
        records->Flush();
    });
});

const Curve countRecords({"records: GetInUseRecordCount", 0.1}, [](std::size_t count) {
    Records records(count);
    int found = 0;
    const double each = Microseconds(few, [&](std::size_t) {
        found += records->GetInUseRecordCount();
        found -= records->IsFileEmpty();
    });
    if (found != static_cast<int>(few * count)) std::abort();
    return each;
});

// --- block files

class Blocks {
public:
    explicit Blocks(std::size_t count)
    {
        if (!m_file.CreateFileA(Fresh("growth.blocks").c_str(), 64, 6, 64)) std::abort();
        for (std::size_t i = 0; i < count; ++i) m_file.AllocateSingleBlock(true);
    }
    // Every second block is free.
    void MakeHoles(std::size_t count)
    {
        for (DWORD block = 0; block < count; block += 2) m_file.FreeSingleBlock(block);
    }
    CBlockMappedFile* operator->() { return &m_file; }

private:
    CBlockMappedFile m_file;
};

const Curve addBlock({"block file: a block", 5}, [](std::size_t count) {
    Blocks blocks(0);
    return Microseconds(count, [&](std::size_t) { blocks->AllocateSingleBlock(true); });
});

const Curve runOfBlocks({"block file: a run of two blocks in a map with holes", 5}, [](std::size_t count) {
    Blocks blocks(count);
    blocks.MakeHoles(count);
    return Microseconds(few, [&](std::size_t) { blocks->AllocateContiguousBlocks(2, true); });
});

const Curve freeAndTake({"block file: free the first block and take two", 5}, [](std::size_t count) {
    Blocks blocks(count);
    return Microseconds(few, [&](std::size_t) {
        blocks->FreeSingleBlock(0);
        blocks->AllocateSingleBlock(true);
        blocks->AllocateSingleBlock(true);
    });
});

// --- word lists

// Different words of eight letters, in no order.
std::u16string Word(std::size_t number)
{
    std::uint64_t mixed = (number * 0x9E3779B1u) % (std::uint64_t{1} << 32);
    std::u16string word;
    for (int i = 0; i < 8; ++i, mixed /= 16) word += static_cast<char16_t>(u'A' + mixed % 16 + (i % 2) * 8);
    return word;
}

class Words {
public:
    explicit Words(std::size_t count)
    {
        if (!m_list.Create(Fresh("growth.words").c_str())) std::abort();
        for (std::size_t i = 0; i < count; ++i) Add(i);
    }
    void Add(std::size_t number) { m_list.AddWord(Word(number).c_str(), static_cast<DWORD>(number + 1)); }
    void Find(std::size_t number)
    {
        if (m_list.FindWord(Word(number).c_str()) != number + 1) std::abort();
    }
    // Random ones, enough for the list to learn where its words are.
    void Search(std::size_t count)
    {
        workload::Rng random(1);
        for (std::size_t i = 0; i < count / 16 + few; ++i)
            Find(random.below(static_cast<std::uint32_t>(count)));
    }

private:
    CWordListFile m_list;
};

const Curve addWord({"words: add in random order", 1.5}, [](std::size_t count) {
    Words words(0);
    return Microseconds(count, [&](std::size_t i) { words.Add(i); });
});

const Curve addAfterSearches({"words: add after searches", 1.5}, [](std::size_t count) {
    Words words(count);
    words.Search(count);
    return Microseconds(count / 4, [&](std::size_t i) { words.Add(count + i); });
});

const Curve findWord({"words: find", 1, 10'000'000}, [](std::size_t count) {
    Words words(count);
    words.Search(count);
    workload::Rng random(2);
    return Microseconds(100 * few,
                        [&](std::size_t) { words.Find(random.below(static_cast<std::uint32_t>(count))); });
});

} // namespace
