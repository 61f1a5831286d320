#include "RecordFiles.h"

#include "corekit/stores/RecordFileSalvage.h"

using namespace records;

namespace {
using Numbers = std::vector<int>;
}

class RecordSalvageTest : public RecordFileTest {
protected:
    RecordFileSalvage Salvage() { return SalvageRecordFile(name.c_str(), target.c_str()); }

    std::string target = folder / "salvaged.vlr";
};

TEST_F(RecordSalvageTest, EveryReadableRecordOfADamagedFileIsSaved)
{
    Make({100, 200, 600, 512, 1, 5000});
    Patch(name, 512 + 1 * 8, 17 * 512);     // on record 0
    Patch(name, 512 + 2 * 8 + 4, 0x400000); // longer than the file
    Patch(name, 512 + 3 * 8, 512);          // on the index
    Patch(name, 36, 0xFFFFFFFF);            // no map
    Patch(name, 16, 4);                     // no size
    const RecordFileSalvage done = Salvage();
    EXPECT_EQ(done.sound, (Numbers{0, 4, 5}));
    EXPECT_EQ(done.doubtful, (Numbers{1, 3}));
    EXPECT_EQ(done.lost, (Numbers{2}));
    EXPECT_EQ(CVariableLengthRecordFile().CheckFile(target.c_str(), 0, 0, 0), 1);
    CVariableLengthRecordFile file;
    ASSERT_EQ(file.OpenFile(target.c_str()), 1);
    EXPECT_EQ(Get(file, 0), Content(0, 100));
    EXPECT_EQ(Get(file, 1).substr(0, 100), Content(0, 100));
    EXPECT_EQ(Get(file, 2), "");
    EXPECT_EQ(Get(file, 5), Content(5, 5000));
}

TEST_F(RecordSalvageTest, OnlyTheFirstOfRecordsThatAllClaimTheWholeFileIsCopied)
{
    Make({100, 200, 600, 512, 1, 5000});
    for (std::size_t i = 0; i < 6; ++i) {
        const VLRExtent all{0, static_cast<DWORD>(std::filesystem::file_size(name))};
        Patch(name, 512 + i * 8, &all, sizeof all);
    }
    const RecordFileSalvage done = Salvage();
    EXPECT_EQ(done.doubtful, (Numbers{0}));
    EXPECT_EQ(done.lost, (Numbers{1, 2, 3, 4, 5}));
}

TEST_F(RecordSalvageTest, ARefusalMakesNoTargetAndKeepsTheOneThatIsThere)
{
    EXPECT_NE(Thrown([&] { Salvage(); }), "nothing");
    Make({100});
    Patch(name, 3, 0);
    EXPECT_EQ(Thrown([&] { Salvage(); }), name + " is not a V.L.R. file");
    EXPECT_FALSE(std::filesystem::exists(target));
    Patch(name, 0, corekit::detail::recordFileMagic, 16);
    std::ofstream(target) << "mine";
    EXPECT_NE(Thrown([&] { Salvage(); }), "nothing");
    EXPECT_EQ(ReadWhole(target), "mine");
}
