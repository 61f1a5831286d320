#include "corekit/foundation/SafeAlloc.h"

#include "corekit/framework/Exception.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(SafeAlloc, ImpossibleSizeThrowsAndLeavesTheOldBlock)
{
    char* block = static_cast<char*>(__safe_malloc(8, __FILE__, __LINE__));
    std::strcpy(block, "kept");
    EXPECT_EQ(ThrownClass([&] { __safe_realloc(block, -1, __FILE__, __LINE__); }),
              RUNTIME_CLASS(CMemoryException));
    EXPECT_EQ(ThrownClass([] { __safe_malloc(-8, __FILE__, __LINE__); }), RUNTIME_CLASS(CMemoryException));
    EXPECT_STREQ(block, "kept");
    safe_free(block);
    safe_free(nullptr);
}

TEST(SafeAlloc, EmptyRequestsGiveRealBlocks)
{
    void* block = __safe_malloc(0, __FILE__, __LINE__);
    EXPECT_NE(block, nullptr);
    block = __safe_realloc(block, 0, __FILE__, __LINE__);
    EXPECT_NE(block, nullptr);
    safe_free(block);
}

TEST(SafeAlloc, DuplicatesCarryTheirTerminator)
{
    char* narrow = __safe_dupstring("", __FILE__, __LINE__);
    WCHAR* wide = __safe_dupstring(u"\u0628\u062A", __FILE__, __LINE__);
    EXPECT_EQ(narrow[0], 0);
    EXPECT_EQ(std::u16string(wide), u"\u0628\u062A");
    safe_free(narrow);
    safe_free(wide);
}
