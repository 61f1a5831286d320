#include "corekit/platform/FileMapping.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/SystemInfo.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class FileMapping : public testing::Test {
protected:
    HANDLE Open() const
    {
        return CreateFileA(name.c_str(), GENERIC_READ | GENERIC_WRITE, 7, nullptr, OPEN_ALWAYS,
                           FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    }

    TempFolder folder;
    const std::string name = folder / "mapped";
};

} // namespace

TEST_F(FileMapping, AViewOutlivesItsHandlesAndSharesWhatIsWritten)
{
    const HANDLE file = Open();
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

TEST_F(FileMapping, WhatCannotBeMappedIsRefused)
{
    const HANDLE file = Open();
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

TEST_F(FileMapping, WhatAViewShowsIsNotCutOff)
{
    const HANDLE file = Open();
    const HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READWRITE, 0, 70000, nullptr);
    const void* const view = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 10000);
    CloseHandle(mapping);
    const auto cutTo = [&](LONG size) {
        SetLastError(0);
        SetFilePointer(file, size, nullptr, FILE_BEGIN);
        return SetEndOfFile(file) ? 0 : GetLastError();
    };
    EXPECT_EQ(cutTo(10000), 0u);
    EXPECT_EQ(cutTo(9999), 1224u);
    EXPECT_EQ(CreateFileA(name.c_str(), GENERIC_WRITE, 7, nullptr, CREATE_ALWAYS, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), 1224u);
    EXPECT_EQ(GetFileSize(file, nullptr), 10000u);
    EXPECT_EQ(cutTo(80000), 0u);
    EXPECT_TRUE(UnmapViewOfFile(view));
    EXPECT_EQ(cutTo(1), 0u);
    CloseHandle(file);
}

TEST_F(FileMapping, HolesHaveTheirRoomBeforeSomebodyWritesIntoThem)
{
    const HANDLE file = Open();
    ASSERT_EQ(::truncate(name.c_str(), 1 << 20), 0);
    struct stat facts;
    const auto room = [&] { return ::stat(name.c_str(), &facts) == 0 ? facts.st_blocks * 512 : -1; };
    const HANDLE reading = CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    ASSERT_NE(reading, nullptr);
    EXPECT_LT(room(), 1 << 20) << "readers need none";
    const HANDLE writing = CreateFileMappingA(file, nullptr, PAGE_READWRITE, 0, 0, nullptr);
    ASSERT_NE(writing, nullptr);
    EXPECT_GE(room(), 1 << 20);
    for (const HANDLE handle : {reading, writing, file}) CloseHandle(handle);
}

TEST_F(FileMapping, AViewGrowsWithItsFile)
{
    const HANDLE file = Open();
    constexpr DWORD first = 5000, step = 300'000;
    HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READWRITE, 0, first, nullptr);
    void* view = MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0);
    EXPECT_FALSE(ExtendViewOfFile(view, mapping, first + 1)) << "the mapping has no more";
    CloseHandle(mapping);
    for (DWORD size = first; size < 20 * step; size += step) {
        static_cast<char*>(view)[size - 1] = '!';
        mapping = CreateFileMappingA(file, nullptr, PAGE_READWRITE, 0, size + step, nullptr);
        view = ExtendViewOfFile(view, mapping, size + step);
        CloseHandle(mapping);
        ASSERT_TRUE(view);
        EXPECT_EQ(static_cast<const char*>(view)[size - 1], '!');
        EXPECT_EQ(static_cast<const char*>(view)[size + step - 1], 0);
        EXPECT_TRUE(FlushViewOfFile(view, 0));
    }
    EXPECT_TRUE(UnmapViewOfFile(view));
    EXPECT_FALSE(UnmapViewOfFile(view));
    CloseHandle(file);
}

TEST_F(FileMapping, OffsetsGoByTheGranularityOfTheSystem)
{
    SYSTEM_INFO system;
    GetSystemInfo(&system);
    const HANDLE file = Open();
    const HANDLE mapping =
        CreateFileMappingA(file, nullptr, PAGE_READWRITE, 0, 3 * system.dwAllocationGranularity, nullptr);
    const void* const view = MapViewOfFile(mapping, FILE_MAP_READ, 0, system.dwAllocationGranularity, 1);
    EXPECT_NE(view, nullptr);
    UnmapViewOfFile(view);
    CloseHandle(mapping);
    CloseHandle(file);
}
