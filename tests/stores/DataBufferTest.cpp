#include "corekit/stores/DataBuffer.h"
#include "corekit/foundation/SafeAlloc.h"
#include "corekit/framework/Exception.h"
#include "corekit/platform/Memory.h"
#include "corekit/stores/DataCache.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

namespace {

std::string Text(const CDataBuffer& buffer)
{
    return {static_cast<const char*>(buffer.GetBuffer()), buffer.GetSize()};
}

} // namespace

TEST(DataBuffer, BorrowedBlocksAreNeverFreedAndOwnedOnesAre)
{
    char borrowed[] = "borrowed";
    CDataBuffer buffer(borrowed, 8, false);
    EXPECT_EQ(buffer.GetBufferOffset(7), borrowed + 7);
    EXPECT_EQ(buffer.GetBufferOffset(8), nullptr);
    EXPECT_EQ(buffer.Detach(), borrowed);
    EXPECT_EQ(buffer.GetSize(), 0u);
    buffer.Free();
    buffer.Create(16);
    buffer.Attach(borrowed, 8, false);
    CDataBuffer taker;
    taker.Create(4);
    taker.TakeoverBuffer(buffer);
    taker.TakeoverBuffer(taker);
    EXPECT_EQ(taker.GetBuffer(), borrowed);
    EXPECT_EQ(buffer.GetBuffer(), nullptr);
    EXPECT_EQ(buffer.GetSize(), 0u);
}

TEST(DataBuffer, ABufferMayCopyItsOwnContent)
{
    CDataBuffer buffer;
    buffer.AttachCopy("abcdef", 6);
    buffer.AttachCopy(buffer);
    EXPECT_EQ(Text(buffer), "abcdef");
    buffer.AttachCopy(buffer.GetBufferOffset(2), 3);
    EXPECT_EQ(Text(buffer), "cde");
    buffer.AttachMerged(buffer.GetBuffer(), 3, buffer.GetBufferOffset(1), 2);
    EXPECT_EQ(Text(buffer), "cdede");
    buffer.AttachCopy("", 0);
    EXPECT_EQ(buffer.GetBuffer(), nullptr);
    EXPECT_TRUE(buffer.IsEqual(CDataBuffer()));
    EXPECT_TRUE(buffer.IsEqual("x", 0));
}

TEST(DataBuffer, AMergeBeyondTheLargestSizeIsRefusedAndKeepsTheContent)
{
    CDataBuffer buffer;
    buffer.AttachCopy("kept", 4);
    const char some[] = "some";
    EXPECT_NE(Thrown([&] { buffer.AttachMerged(some, 0xFFFFFFF0, some, 0x20); }), "nothing");
    EXPECT_EQ(Text(buffer), "kept");
}

TEST(DataBuffer, CopiesAreEqualAndOwnTheirBlocks)
{
    CDataBuffer buffer;
    buffer.AttachMerged("some ", 5, "bytes", 5);
    const std::unique_ptr<CDataBuffer> twin(buffer.AllocateDuplicate());
    const std::unique_ptr<CDataBuffer> other(CDataBuffer::AllocateMerged("some ", 5, "bytez", 5));
    const std::unique_ptr<CDataBuffer> prefix(CDataBuffer::AllocateCopy("some byte", 9));
    EXPECT_NE(twin->GetBuffer(), buffer.GetBuffer());
    EXPECT_TRUE(twin->IsEqual(buffer));
    EXPECT_FALSE(other->IsEqual(buffer));
    EXPECT_FALSE(prefix->IsEqual(buffer));

    EXPECT_EQ(CDataBuffer().AllocateGlobalMemoryCopy(), nullptr);
    const HGLOBAL global = buffer.AllocateGlobalMemoryCopy();
    ASSERT_NE(global, nullptr);
    EXPECT_EQ(GlobalSize(global), 10u);
    EXPECT_EQ(std::memcmp(GlobalLock(global), "some bytes", 10), 0);
    EXPECT_FALSE(GlobalUnlock(global)); // nobody else holds it
    GlobalFree(global);
}

TEST(DataBuffer, ABufferTakesOverTheContentOfAStream)
{
    CMemoryStream stream(0, 64);
    stream.Write("streamed", 8);
    CDataBuffer buffer;
    buffer.TakeoverFromStream(stream);
    EXPECT_EQ(Text(buffer), "streamed");
}

TEST(DataCache, DeletingAllFreesTheBlocksAndClearsTheCounts)
{
    struct Cache : CDataCache {
        using CDataCache::CDataCache;
        void Put(DWORD size)
        {
            m_elements.Add({1, __safe_malloc(static_cast<int>(size), __FILE__, __LINE__), 3});
            m_currentSize += size;
        }
        DWORD Held() const { return m_currentSize + static_cast<DWORD>(m_elements.GetSize()); }
        DWORD Most() const { return m_maxSize; }
    } cache(100);
    cache.Put(10);
    cache.Put(20);
    EXPECT_EQ(cache.Held(), 32u);
    cache.DeleteAllObjects();
    EXPECT_EQ(cache.Held(), 0u);
    EXPECT_EQ(cache.Most(), 100u);
    EXPECT_STREQ(cache.GetRuntimeClass()->m_lpszClassName, "CDataCache");
    EXPECT_TRUE(cache.IsKindOf(RUNTIME_CLASS(CObject)));
    cache.Put(5); // freed by the destructor
}
