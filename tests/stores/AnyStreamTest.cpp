// What all four streams do.
#include "corekit/platform/Files.h"
#include "corekit/stores/FileStream.h"
#include "corekit/stores/GlobalMemoryStream.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/OleFile.h"
#include "corekit/stores/OleStream.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

// How each is made, empty, and what it says at its end.
template <class Stream>
struct InMemory {
    InMemory() { stream.Create(0, 4096); }
    Stream& Get() { return stream; }

    Stream stream;
    static constexpr const char* noRead = "[Memory Stream] Read past end of buffer";
    static constexpr const char* noSeek = "[Memory Stream] seek position invalid.";
    static constexpr const char* noSkip = "[Memory Stream] Skip request would pass the end of the buffer.";
};

struct InAFile {
    InAFile()
    {
        EXPECT_EQ(stream.Open((folder / "f").c_str(), GENERIC_READ | GENERIC_WRITE, 0, CREATE_NEW, 0), 1);
    }
    CFileStream& Get() { return stream; }

    TempFolder folder;
    CFileStream stream;
    static constexpr const char* noRead = "[File Stream] Read request would pass the end of the file";
    static constexpr const char* noSeek =
        "[File Stream] Seek request to a position beyond the end of the file";
    static constexpr const char* noSkip = "[File Stream] skip would pass past the end of the file";
};

struct InACompoundFile {
    InACompoundFile()
    {
        file.Create((folder / "f").c_str(), 0);
        stream.reset(file.CreateStream(u"Stream"));
    }
    COleStream& Get() { return *stream; }

    TempFolder folder;
    COleFile file;
    std::unique_ptr<COleStream> stream;
    static constexpr const char* noRead = "[OLE Stream] Read request would pass beyond the end of the file.";
    static constexpr const char* noSeek = "[OLE Stream] Seek position is beyond the end of the stream.";
    static constexpr const char* noSkip = "[OLE Stream] Skip request would pass beyond the end of the file.";
};

template <class Place>
class AnyStream : public testing::Test {
protected:
    static std::vector<BYTE> Samples(std::size_t size)
    {
        std::vector<BYTE> bytes(size);
        for (std::size_t i = 0; i < size; ++i) bytes[i] = BYTE(i * 31 + i / 256);
        return bytes;
    }

    Place place;
    decltype(place.Get()) stream = place.Get();
};
using All = testing::Types<InMemory<CMemoryStream>, InMemory<CGlobalMemoryStream>, InAFile, InACompoundFile>;
TYPED_TEST_SUITE(AnyStream, All);

TYPED_TEST(AnyStream, ReadsAndWritesAgreeInPiecesOfEverySize)
{
    for (const DWORD size : {0u, 1u, 65535u, 65536u, 65537u, 131072u, 200000u}) {
        for (const DWORD step : {1u, 7u, 65535u, 65536u, 65537u}) {
            if (size / step > 30000) continue;
            const auto bytes = this->Samples(size);
            this->stream.SeekToPos(0);
            this->stream.SetEndOfStream();
            for (DWORD at = 0; at < size; at += step)
                this->stream.Write(bytes.data() + at, std::min(step, size - at));
            EXPECT_EQ(this->stream.GetCurrentPos(), this->stream.GetSize());
            EXPECT_EQ(this->stream.GetSize(), size);
            this->stream.Flush();
            this->stream.SeekToPos(0);
            std::vector<BYTE> read(size);
            for (DWORD at = 0; at < size; at += step)
                this->stream.Read(read.data() + at, std::min(step, size - at));
            EXPECT_EQ(read, bytes) << size << " by " << step;
        }
    }
}

TYPED_TEST(AnyStream, MovesAndReadsEndAtTheSize)
{
    BYTE buffer[16];
    this->stream.Write(this->Samples(10).data(), 10);
    this->stream.Read(buffer, 0);
    EXPECT_EQ(Thrown([&] { this->stream.SeekToPos(11); }), TypeParam::noSeek);
    EXPECT_EQ(Thrown([&] { this->stream.Skip(1); }), TypeParam::noSkip);
    EXPECT_EQ(this->stream.GetCurrentPos(), 10u);
    this->stream.Skip(-10);
    EXPECT_EQ(Thrown([&] { this->stream.Skip(-1); }), TypeParam::noSkip);
    EXPECT_EQ(Thrown([&] { this->stream.Read(buffer, 11); }), TypeParam::noRead);
    EXPECT_EQ(this->stream.GetCurrentPos(), 0u);
    EXPECT_EQ(this->stream.GetSize(), 10u);
}

TYPED_TEST(AnyStream, OverwritesKeepTheSizeAndGrowthKeepsTheData)
{
    for (int i = 0; i < 1000; ++i) this->stream.write_int32(i);
    this->stream.SeekToPos(40);
    this->stream.write_int32(-1);
    EXPECT_EQ(this->stream.GetSize(), 4000u);
    this->stream.SeekToPos(this->stream.GetSize());
    this->stream.write_uint8(1);
    EXPECT_EQ(this->stream.GetSize(), 4001u);
    this->stream.SeekToPos(0);
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(this->stream.read_int32(), i == 10 ? -1 : i);
}

TYPED_TEST(AnyStream, EndsWhereItsEndIsSet)
{
    this->stream.Write(this->Samples(70000).data(), 70000);
    this->stream.SeekToPos(65541);
    this->stream.SetEndOfStream();
    EXPECT_EQ(this->stream.GetCurrentPos(), this->stream.GetSize());
    EXPECT_EQ(this->stream.GetSize(), 65541u);
    this->stream.SeekToPos(65540);
    EXPECT_EQ(this->stream.read_uint8(), this->Samples(65541).back());
    this->stream.SeekToPos(0);
    this->stream.SetEndOfStream();
    EXPECT_EQ(this->stream.GetCurrentPos(), this->stream.GetSize());
    EXPECT_EQ(this->stream.GetSize(), 0u);
}

} // namespace
