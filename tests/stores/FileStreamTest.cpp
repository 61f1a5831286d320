#include "corekit/stores/FileStream.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Handles.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr DWORD both = GENERIC_READ | GENERIC_WRITE;

class FileStream : public testing::Test {
protected:
    TempFolder folder;
    const std::string path = folder / "stream";
    CFileStream stream;

    void Open(DWORD access = both, DWORD disposition = OPEN_ALWAYS)
    {
        ASSERT_EQ(stream.Open(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, disposition, 0), 1);
    }
    std::vector<BYTE> OnDisk() const
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    void PutOnDisk(std::size_t size) const
    {
        std::ofstream file(path, std::ios::binary);
        for (std::size_t i = 0; i < size; ++i) file.put(char(Sample(i)));
    }
    static BYTE Sample(std::size_t i) { return BYTE(i * 31 + i / 256); }
    static std::vector<BYTE> Samples(std::size_t size)
    {
        std::vector<BYTE> bytes(size);
        for (std::size_t i = 0; i < size; ++i) bytes[i] = Sample(i);
        return bytes;
    }
};

TEST_F(FileStream, AFlushPutsEveryByteOnTheDisk)
{
    for (const DWORD size : {1u, 65535u, 65536u, 65537u, 131072u, 200000u}) {
        const auto bytes = Samples(size);
        Open(both, CREATE_ALWAYS);
        for (DWORD at = 0; at < size; at += 7) stream.Write(bytes.data() + at, std::min<DWORD>(7, size - at));
        stream.Flush();
        EXPECT_EQ(OnDisk(), bytes) << size;
    }
}

TEST_F(FileStream, WritesAcrossABoundaryStoreTheFirstPageOnly)
{
    PutOnDisk(65536 + 100);
    Open();
    stream.SeekToPos(65534);
    stream.write_uint32(0);
    EXPECT_EQ(OnDisk()[65535], 0);
    EXPECT_EQ(OnDisk()[65536], Sample(65536));
    stream.Flush();
    EXPECT_EQ(OnDisk()[65536], 0);
    EXPECT_EQ(OnDisk()[65538], Sample(65538));
}

TEST_F(FileStream, CloseDropsWhatWasNotFlushed)
{
    Open();
    stream.write_uint32(1);
    stream.Flush();
    stream.write_uint32(2);
    stream.Close();
    EXPECT_EQ(OnDisk().size(), 4u);
    EXPECT_FALSE(stream.IsOpen());
    {
        CFileStream dropped;
        dropped.Open(path.c_str(), both, 0, OPEN_EXISTING, 0);
        dropped.write_uint32(9);
    }
    EXPECT_EQ(OnDisk()[0], 1);
}

TEST_F(FileStream, EveryReadWritesADirtyPageOut)
{
    PutOnDisk(100);
    Open();
    stream.write_uint8(0xEE);
    EXPECT_EQ(OnDisk()[0], Sample(0));
    EXPECT_EQ(stream.read_uint8(), Sample(1));
    EXPECT_EQ(OnDisk()[0], 0xEE);
    stream.write_uint8(0xDD);
    stream.Read(nullptr, 0);
    EXPECT_EQ(OnDisk()[2], 0xDD);
}

TEST_F(FileStream, EndOfStreamCutsTheFileAndADirtyPage)
{
    PutOnDisk(70000);
    Open();
    stream.SeekToPos(65540);
    stream.write_uint32(0);
    stream.SeekToPos(65541);
    stream.SetEndOfStream();
    EXPECT_EQ(std::filesystem::file_size(path), 65541u);
    stream.Flush();
    EXPECT_EQ(std::filesystem::file_size(path), 65541u);
    EXPECT_EQ(OnDisk()[65540], 0);
    stream.SeekToPos(0);
    stream.SetEndOfStream();
    EXPECT_TRUE(stream.IsEOF());
    EXPECT_EQ(std::filesystem::file_size(path), 0u);
}

TEST_F(FileStream, PositionsReachTheThirtyTwoBitLimit)
{
    PutOnDisk(0);
    std::filesystem::resize_file(path, 0xFFFFFFFF); // sparse
    Open();
    EXPECT_EQ(stream.GetSize(), 0xFFFFFFFFu);
    for (const DWORD at : {0x7FFFFFFEu, 0x80000000u, 0xFFFFFFFBu}) {
        stream.SeekToPos(at);
        stream.write_uint32(at);
        stream.SeekToPos(at);
        EXPECT_EQ(stream.read_uint32(), at);
    }
    EXPECT_TRUE(stream.IsEOF());
    EXPECT_TRUE(
        Thrown([&] { stream.write_uint8(1); }).starts_with("[File Stream] Unable to write to file\n"));
    stream.Skip(-1);
    stream.SetEndOfStream();
    EXPECT_EQ(std::filesystem::file_size(path), 0xFFFFFFFEu);
}

TEST_F(FileStream, AFileBeyondTheLimitIsRefusedWhole)
{
    PutOnDisk(10);
    Open();
    const std::string large = path + ".large";
    std::ofstream{large};
    std::filesystem::resize_file(large, 0x100000005); // sparse
    EXPECT_TRUE(Thrown([&] {
                    stream.Open(large.c_str(), both, 0, OPEN_EXISTING, 0);
                }).starts_with("[File Stream] Unable to set cursor position\n"));
    EXPECT_EQ(stream.GetSize(), 10u); // what was open before
    EXPECT_STREQ(stream.GetFilename(), path.c_str());
    EXPECT_EQ(std::filesystem::file_size(large), 0x100000005u);
    std::filesystem::remove(large);
}

TEST_F(FileStream, AnEndThatTheFileRefusesStaysWhereItWas)
{
    PutOnDisk(10);
    Open(GENERIC_READ);
    stream.SeekToPos(4);
    EXPECT_TRUE(
        Thrown([&] { stream.SetEndOfStream(); }).starts_with("[FileStream] Set End Of File failed\n"));
    EXPECT_EQ(stream.GetSize(), 10u);
}

TEST_F(FileStream, ReadThatFailsMidwayStaysWhereItHadCome)
{
    PutOnDisk(3 * 65536);
    Open();
    std::filesystem::resize_file(path, 65536 + 10);
    std::vector<BYTE> read(3 * 65536);
    const auto failed = [&](DWORD count) {
        return Thrown([&] { stream.Read(read.data(), count); })
            .starts_with("[File Stream] Unable to read from file\n");
    };
    EXPECT_TRUE(failed(3 * 65536));
    EXPECT_EQ(stream.GetCurrentPos(), 65536u);
    EXPECT_EQ(read[65535], Sample(65535));
    EXPECT_TRUE(failed(1)); // not the page that was there before
    stream.SeekToPos(5);
    EXPECT_EQ(stream.read_uint8(), Sample(5));
}

TEST_F(FileStream, WriteThatTheFileRefusesKeepsItsPage)
{
    PutOnDisk(10);
    Open(GENERIC_READ);
    stream.write_uint8(1);
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(Thrown([&] { stream.Flush(); }).starts_with("[File Stream] Unable to write to file\n"));
    }
    EXPECT_EQ(OnDisk()[0], Sample(0));
}

TEST_F(FileStream, AFailedOpenReturnsZeroAndLeavesTheStreamClosed)
{
    EXPECT_EQ(stream.Open(path.c_str(), GENERIC_READ, 0, OPEN_EXISTING, 0), 0);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(stream.IsOpen());
    EXPECT_STREQ(stream.GetFilename(), "");
    BYTE byte = 0;
    EXPECT_NE(Thrown([&] { stream.Read(&byte, 0); }), "nothing");
    EXPECT_NE(Thrown([&] { stream.Write(&byte, 1); }), "nothing");
}

TEST_F(FileStream, ADetachedHandleStaysOpenForWhoeverAttachesIt)
{
    Open();
    EXPECT_STREQ(stream.GetFilename(), path.c_str());
    stream.write_uint16(0x4142);
    stream.Flush();
    const HANDLE file = stream.DetachHandle();
    EXPECT_FALSE(stream.IsOpen());
    CFileStream taker;
    EXPECT_EQ(taker.AttachFile(file), 1);
    EXPECT_STREQ(taker.GetFilename(), "");
    EXPECT_EQ(taker.read_uint16(), 0x4142);
    taker.Close();
    EXPECT_EQ(CloseHandle(file), 0);
}

} // namespace
