#include "corekit/platform/FileMapping.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

HANDLE Open(const std::string& name, DWORD access)
{
    return CreateFileA(name.c_str(), access, 7, nullptr, OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

} // namespace

TEST(FileMapping, ViewLosesTheFileOrMissesWhatIsWritten)
{
    const std::string name = testing::TempDir() + "mapping-test";
    const HANDLE file = Open(name, GENERIC_READ | GENERIC_WRITE);
    const HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READWRITE, 0, 70000, nullptr);
    ASSERT_NE(mapping, nullptr);
    EXPECT_EQ(GetFileSize(file, nullptr), 70000u);
    auto* const all = static_cast<char*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0));
    auto* const tail = static_cast<const char*>(MapViewOfFile(mapping, FILE_MAP_READ, 0, 65536, 16));
    ASSERT_TRUE(all && tail);
    OVERLAPPED place;
    place.Offset = 65540;
    DWORD moved;
    ASSERT_TRUE(WriteFile(file, "here", 4, &moved, &place));
    CloseHandle(mapping);
    CloseHandle(file);
    EXPECT_EQ(std::memcmp(tail + 4, "here", 4), 0);
    all[65536] = 'w';
    EXPECT_EQ(tail[0], 'w');
    EXPECT_TRUE(FlushViewOfFile(all, 0));
    EXPECT_TRUE(FlushViewOfFile(all + 69999, 1));
    EXPECT_FALSE(FlushViewOfFile(all + 69999, 2));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_ADDRESS);
    EXPECT_FALSE(FlushViewOfFile(&moved, 4));
    EXPECT_TRUE(UnmapViewOfFile(all));
    EXPECT_TRUE(UnmapViewOfFile(tail));
    EXPECT_FALSE(UnmapViewOfFile(tail));
    EXPECT_FALSE(FlushViewOfFile(tail, 0));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_ADDRESS);
}

TEST(FileMapping, WhatCannotBeMappedIsMapped)
{
    const std::string name = testing::TempDir() + "mapping-refused";
    const HANDLE file = Open(name, GENERIC_READ | GENERIC_WRITE);
    const auto refusedAs = [](HANDLE handle, DWORD protection, DWORD size) {
        SetLastError(0);
        EXPECT_EQ(CreateFileMappingA(handle, nullptr, protection, 0, size, nullptr), nullptr);
        return GetLastError();
    };
    EXPECT_EQ(refusedAs(nullptr, PAGE_READONLY, 0), ERROR_INVALID_HANDLE);
    EXPECT_EQ(refusedAs(file, PAGE_READONLY, 0), ERROR_FILE_INVALID);
    EXPECT_EQ(refusedAs(file, PAGE_READONLY, 10), ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(refusedAs(file, 0x40, 10), ERROR_INVALID_PARAMETER);
    DWORD moved;
    WriteFile(file, "0123456789", 10, &moved, nullptr);
    const HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0), nullptr);
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_READ, 0, 4096, 0), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MAPPED_ALIGNMENT);
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 11), nullptr);
    EXPECT_EQ(refusedAs(mapping, PAGE_READONLY, 0), ERROR_INVALID_HANDLE);
    CloseHandle(mapping);
    CloseHandle(file);
}
