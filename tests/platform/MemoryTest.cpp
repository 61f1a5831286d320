#include "corekit/platform/Memory.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Variant.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace {

TEST(GlobalMemory, MoveableBlockKeepsContentAndClearsGrowth)
{
    const HGLOBAL block = GlobalAlloc(0x2042, 10);
    char* bytes = static_cast<char*>(GlobalLock(block));
    EXPECT_TRUE(std::all_of(bytes, bytes + 10, [](char c) { return c == 0; }));
    std::memset(bytes, 'x', 10);
    EXPECT_EQ(GlobalReAlloc(block, 1 << 20, GMEM_ZEROINIT), nullptr); // locked: may not move
    EXPECT_EQ(GlobalSize(block), 10u);
    EXPECT_EQ(bytes[9], 'x');
    EXPECT_EQ(GlobalUnlock(block), FALSE);
    EXPECT_EQ(GetLastError(), NO_ERROR);
    EXPECT_EQ(GlobalReAlloc(block, 1 << 20, 0x40), block);
    bytes = static_cast<char*>(GlobalLock(block));
    EXPECT_EQ(bytes[9], 'x');
    EXPECT_TRUE(std::all_of(bytes + 10, bytes + (1 << 20), [](char c) { return c == 0; }));
    EXPECT_EQ(GlobalLock(block), bytes);
    EXPECT_EQ(GlobalUnlock(block), TRUE);
    EXPECT_EQ(GlobalUnlock(block), FALSE);
    EXPECT_EQ(GlobalUnlock(block), FALSE);
    EXPECT_EQ(GetLastError(), ERROR_NOT_LOCKED);
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(GlobalFree(block), block);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(GlobalMemory, FixedBlockIsItsOwnAddress)
{
    HGLOBAL block = GlobalAlloc(GPTR, 8);
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_EQ(GlobalUnlock(block), TRUE);
    EXPECT_EQ(GlobalReAlloc(block, 4, 0), block);
    EXPECT_EQ(GlobalReAlloc(block, 400000, 0), nullptr);
    std::memcpy(block, "abc", 4);
    block = GlobalReAlloc(block, 400000, GMEM_MOVEABLE);
    EXPECT_STREQ(static_cast<char*>(block), "abc");
    EXPECT_EQ(GlobalSize(block), 400000u);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemory, WhatIsNoBlockIsRefused)
{
    int local;
    for (const HGLOBAL wrong : {HGLOBAL{}, static_cast<HGLOBAL>(&local)}) {
        SetLastError(0);
        EXPECT_EQ(GlobalLock(wrong), nullptr);
        EXPECT_EQ(GlobalSize(wrong), 0u);
        EXPECT_EQ(GlobalReAlloc(wrong, 1, 0), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

TEST(Variants, TextIsCountedOwnedAndFreed)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocStringLen(u"a\0b", 3);
    EXPECT_EQ(std::u16string_view(variant.bstrVal, 4), std::u16string_view(u"a\0b\0", 4));
    EXPECT_EQ(VariantClear(&variant), S_OK);
    EXPECT_EQ(variant.vt, VT_EMPTY);
    variant.vt = 99;
    EXPECT_EQ(VariantClear(&variant), DISP_E_BADVARTYPE);
    EXPECT_EQ(variant.vt, 99);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFF), nullptr);
    SysFreeString(nullptr);
}

} // namespace
