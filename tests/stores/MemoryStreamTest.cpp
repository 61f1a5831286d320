#include "corekit/stores/MemoryStream.h"
#include "corekit/foundation/SafeAlloc.h"
#include "corekit/platform/Memory.h"
#include "corekit/stores/GlobalMemoryStream.h"
#include "tests/support/Thrown.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

constexpr const char* readPastEnd = "[Memory Stream] Read past end of buffer";
constexpr const char* seekInvalid = "[Memory Stream] seek position invalid.";
constexpr const char* mayNotGrow = "[Memory Stream] Write requires extension, but extension is disabled.";
constexpr const char* skipPastEnd = "[Memory Stream] Skip request would pass the end of the buffer.";
constexpr const char* cannotGrow = "[Memory Stream] Unable to allocate additional memory to extend buffer.";

template <class Stream>
class EitherMemory : public testing::Test {
};
using Both = testing::Types<CMemoryStream, CGlobalMemoryStream>;
TYPED_TEST_SUITE(EitherMemory, Both);

TYPED_TEST(EitherMemory, RefusedOperationsLeaveTheStreamAsItWas)
{
    TypeParam stream;
    stream.Create(4, 0);
    stream.write_uint16(0x6162);
    BYTE buffer[8] = {};
    EXPECT_EQ(Thrown([&] { stream.Read(buffer, 1); }), readPastEnd);
    EXPECT_EQ(Thrown([&] { stream.Write(buffer, 3); }), mayNotGrow);
    EXPECT_EQ(Thrown([&] { stream.Write(buffer, 0xFFFFFFFF); }), mayNotGrow);
    EXPECT_EQ(Thrown([&] { stream.SeekToPos(3); }), seekInvalid);
    EXPECT_EQ(Thrown([&] { stream.Skip(1); }), skipPastEnd);
    EXPECT_EQ(Thrown([&] { stream.Skip(-3); }), skipPastEnd);
    EXPECT_EQ(stream.GetSize(), 2u);
    EXPECT_EQ(stream.GetCurrentPos(), 2u);
    EXPECT_EQ(std::memcmp(stream.GetMemoryBufferPointer(), "ba", 2), 0);
    stream.Read(buffer, 0);
    stream.Write(buffer, 0);
    stream.Skip(-2);
    EXPECT_EQ(Thrown([&] { stream.Read(buffer, 3); }), readPastEnd);
    EXPECT_EQ(stream.read_uint16(), 0x6162);
    stream.Skip(0);
}

TYPED_TEST(EitherMemory, ImpossibleGrowthIsRefusedWithTheDataKept)
{
    TypeParam stream;
    stream.Create(16, INT_MAX);
    stream.write_int32(77);
    const std::string said = Thrown([&] { stream.Write(&stream, 0xFFFFFFF0); });
    EXPECT_NE(said, "nothing");
    EXPECT_NE(Thrown([&] { stream.Create(-1, 16); }), "nothing");
    if (std::is_same_v<TypeParam, CGlobalMemoryStream>) {
        EXPECT_TRUE(said.starts_with(cannotGrow)) << said;
    }
    stream.SeekToPos(0);
    EXPECT_EQ(stream.read_int32(), 77);
}

TYPED_TEST(EitherMemory, StreamWithoutABlockReadsAndWritesNothing)
{
    TypeParam fresh;
    EXPECT_EQ(Thrown([&] { fresh.write_uint8(1); }), mayNotGrow);
    EXPECT_EQ(Thrown([&] { fresh.read_uint8(); }), readPastEnd);

    TypeParam stream;
    stream.Create(8, 8);
    stream.write_int32(1);
    stream.SeekToPos(0);
    auto* block = stream.Detach();
    EXPECT_EQ(stream.GetSize(), 4u);
    EXPECT_EQ(Thrown([&] { stream.read_int32(); }), readPastEnd);
    EXPECT_EQ(Thrown([&] { stream.write_int32(1); }), mayNotGrow);
    if constexpr (std::is_same_v<TypeParam, CMemoryStream>)
        safe_free(block);
    else
        GlobalFree(block);
    stream.Create(2, 0);
    stream.write_int16(1);
}

TEST(MemoryStream, AttachedBlockIsOverwrittenButNeverExtendedNorFreed)
{
    char data[] = "abcd";
    CMemoryStream stream(data, 4);
    stream.Skip(2);
    stream.Write("XY", 2u);
    EXPECT_TRUE(stream.IsEOF());
    EXPECT_EQ(Thrown([&] { stream.write_uint8(1); }), mayNotGrow);
    EXPECT_STREQ(data, "abXY");
    stream.Free();
    EXPECT_EQ(stream.GetMemoryBufferPointer(), nullptr);
    EXPECT_EQ(stream.GetSize(), 0u);
}

TEST(MemoryStream, OwnershipFollowsTheFlag)
{
    void* block = __safe_malloc(4, nullptr, 0);
    {
        CMemoryStream owner(block, 4);
        owner.SetAutoDelete(1);
        owner.Reset();
        EXPECT_EQ(owner.GetMemoryBufferPointer(), block);
        EXPECT_TRUE(owner.IsEOF());
    }
    CMemoryStream maker(4, 4);
    maker.SetAutoDelete(0);
    void* given = maker.Detach();
    safe_free(given);
    CMemoryStream itsOwn(4, 4);
    itsOwn.Attach(itsOwn.GetMemoryBufferPointer(), 4);
    safe_free(itsOwn.Detach());
}

TEST(GlobalMemoryStream, AttachedBlockGrowsAndStaysTheCallers)
{
    const HGLOBAL block = GlobalAlloc(GHND, 4);
    {
        CGlobalMemoryStream stream;
        EXPECT_TRUE(stream.NotCreated());
        stream.Attach(block, 8);
        EXPECT_EQ(stream.GetSize(), 4u);
        stream.SeekToPos(4);
        stream.write_int32(5);
        EXPECT_EQ(stream.Detach(), block);
    }
    EXPECT_EQ(GlobalSize(block), 12u);
    CGlobalMemoryStream second;
    second.Attach(block, 0);
    second.SeekToPos(4);
    EXPECT_EQ(second.read_int32(), 5);
    second.Empty();
    EXPECT_TRUE(second.NotCreated());
    EXPECT_EQ(GlobalSize(block), 0u);
}

} // namespace
