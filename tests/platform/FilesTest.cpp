#include "corekit/platform/Files.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/FileAttributes.h"
#include "corekit/platform/Waits.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TempFolder.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr DWORD readWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

class Files : public ::testing::Test {
protected:
    void TearDown() override
    {
        for (const HANDLE handle : open) CloseHandle(handle);
    }

    std::string path(const char* name) const { return folder / name; }
    HANDLE create(const char* name, DWORD access, DWORD share, DWORD disposition, DWORD flags = 0)
    {
        const HANDLE handle =
            CreateFileA(path(name).c_str(), access, share, nullptr, disposition, flags, nullptr);
        if (handle != INVALID_HANDLE_VALUE) open.push_back(handle);
        return handle;
    }
    HANDLE newFile(const char* name) { return create(name, readWrite, shareAll, CREATE_NEW); }
    void put(const char* name, std::string_view text) { std::ofstream(path(name)) << text; }
    std::uintmax_t sizeOf(const char* name) const { return std::filesystem::file_size(path(name)); }

    TempFolder folder;
    std::vector<HANDLE> open;
};

DWORD write(HANDLE file, std::string_view text)
{
    DWORD moved = 0;
    EXPECT_TRUE(WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &moved, nullptr));
    return moved;
}

std::string read(HANDLE file, DWORD count)
{
    std::string text(count, '\0');
    DWORD moved = 0;
    EXPECT_TRUE(ReadFile(file, text.data(), count, &moved, nullptr));
    text.resize(moved);
    return text;
}

TEST_F(Files, EachDispositionMakesKeepsOrEmpties)
{
    const std::map<std::string, DWORD> dispositions = {{"create new", CREATE_NEW},
                                                       {"create always", CREATE_ALWAYS},
                                                       {"open existing", OPEN_EXISTING},
                                                       {"open always", OPEN_ALWAYS},
                                                       {"truncate existing", TRUNCATE_EXISTING}};
    for (CaseRow row : CaseRows(TEST_DATA "/files.tsv", "disposition")) {
        SCOPED_TRACE(row.Line());
        const DWORD disposition = dispositions.at(row.Word());
        const bool exists = row.Number() != 0;
        const auto error = row.Number<DWORD>(), after = row.Number<DWORD>();
        std::filesystem::remove(path("f"));
        if (exists) put("f", "abc");
        SetLastError(1);
        const HANDLE file = create("f", GENERIC_WRITE, shareAll, disposition);
        EXPECT_EQ(file == INVALID_HANDLE_VALUE, error != 0);
        EXPECT_EQ(GetLastError(), error != 0 ? error : after);
        if (error == 0 || exists) {
            EXPECT_EQ(sizeOf("f"), row.Number<std::uintmax_t>());
        }
    }
}

TEST_F(Files, NamesThatCannotBeOpenedSayWhy)
{
    std::filesystem::create_directory(folder / "sub");
    put("sub/file", "x");
    const auto errorOf = [](const std::string& name, DWORD access) {
        SetLastError(0);
        EXPECT_EQ(CreateFileA(name.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr),
                  INVALID_HANDLE_VALUE);
        return GetLastError();
    };
    const std::map<std::string, DWORD> access = {{"-", 0}, {"r", GENERIC_READ}, {"rw", readWrite}};
    EXPECT_EQ(errorOf("", GENERIC_READ), ERROR_PATH_NOT_FOUND);
    for (CaseRow row : CaseRows(TEST_DATA "/files.tsv", "name")) {
        const std::string name = path(row.Bytes().c_str());
        const DWORD error = errorOf(name, access.at(row.Word()));
        EXPECT_EQ(error, row.Number<DWORD>()) << row.Line();
    }
    EXPECT_EQ(create("x", GENERIC_READ, 0, 6), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    const HANDLE both = create("sub\\file", GENERIC_READ, shareAll, OPEN_EXISTING); // either separator
    EXPECT_EQ(read(both, 9), "x");
}

TEST_F(Files, ShareModesHoldWithinTheProcess)
{
    const std::map<std::string, DWORD> access = {
        {"-", 0}, {"r", GENERIC_READ}, {"w", GENERIC_WRITE}, {"rw", readWrite}};
    const std::map<std::string, DWORD> share = {
        {"-", 0}, {"r", FILE_SHARE_READ}, {"w", FILE_SHARE_WRITE}, {"rw", shareAll}};
    for (CaseRow row : CaseRows(TEST_DATA "/files.tsv", "share")) {
        SCOPED_TRACE(row.Line());
        const DWORD firstAccess = access.at(row.Word());
        const HANDLE first = create("f", firstAccess, share.at(row.Word()), OPEN_ALWAYS);
        std::filesystem::create_hard_link(folder / "f", folder / "g"); // the same file by another name
        const DWORD nextAccess = access.at(row.Word());
        SetLastError(0);
        const HANDLE second = create("g", nextAccess, share.at(row.Word()), OPEN_EXISTING);
        const bool opens = row.Number() != 0;
        EXPECT_EQ(second != INVALID_HANDLE_VALUE, opens);
        EXPECT_EQ(GetLastError(), opens ? NO_ERROR : ERROR_SHARING_VIOLATION);
        CloseHandle(first);
        CloseHandle(second);
        open.clear();
        EXPECT_NE(create("f", readWrite, 0, OPEN_EXISTING), INVALID_HANDLE_VALUE); // nothing is left behind
        CloseHandle(open.back());
        open.clear();
        std::filesystem::remove(folder / "g");
    }
}

TEST_F(Files, RefusedOpeningLeavesTheContent)
{
    put("f", "abc");
    create("f", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_EQ(create("f", GENERIC_WRITE, shareAll, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(sizeOf("f"), 3u);
}

// What another process gets when it opens the file: its last error, 0 when it gets it.
DWORD errorInChild(const std::string& name, DWORD access, DWORD share)
{
    const pid_t child = ::fork();
    if (child == 0) {
        // A process of its own, without the parent's table: a fresh program image of this test.
        ::execl("/proc/self/exe", "child", "--open", name.c_str(), std::to_string(access).c_str(),
                std::to_string(share).c_str(), nullptr);
        ::_exit(99);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return static_cast<DWORD>(WEXITSTATUS(status));
}

TEST_F(Files, UnsharedFileKeepsOtherProcessesOut)
{
    put("f", "abc");
    const std::string name = path("f");
    EXPECT_EQ(errorInChild(name, GENERIC_READ, FILE_SHARE_READ), 0u);
    const HANDLE alone = create("f", GENERIC_READ, 0, OPEN_EXISTING);
    EXPECT_EQ(errorInChild(name, GENERIC_READ, shareAll), ERROR_SHARING_VIOLATION);
    CloseHandle(alone);
    open.clear();
    create("f", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_EQ(errorInChild(name, GENERIC_READ, FILE_SHARE_READ), 0u);
    EXPECT_EQ(errorInChild(name, GENERIC_READ, 0), ERROR_SHARING_VIOLATION);
}

TEST_F(Files, TransfersAreWholeAtPageBoundariesAndTheEnd)
{
    const HANDLE file = newFile("f");
    std::string text(65536 + 10, '\0');
    for (std::size_t i = 0; i < text.size(); ++i) text[i] = static_cast<char>(i * 7 >> 3);
    EXPECT_EQ(write(file, text.substr(0, 65535)), 65535u);
    EXPECT_EQ(write(file, text.substr(65535)), 11u);
    EXPECT_EQ(GetFileSize(file, nullptr), text.size());
    for (const DWORD place : {0u, 65535u, 65536u, 65537u}) {
        EXPECT_EQ(SetFilePointer(file, static_cast<LONG>(place), nullptr, FILE_BEGIN), place);
        EXPECT_EQ(read(file, 100000), text.substr(place));
    }
    EXPECT_EQ(read(file, 10), ""); // at the end: nothing, and no failure
    SetFilePointer(file, 5, nullptr, FILE_BEGIN);
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_EQ(SetFilePointer(file, 4, nullptr, FILE_END), 9u);
    write(file, "z");
    EXPECT_EQ(SetFilePointer(file, -10, nullptr, FILE_CURRENT), 0u);
    EXPECT_EQ(read(file, 99), text.substr(0, 5) + std::string(4, '\0') + "z");
    EXPECT_TRUE(FlushFileBuffers(file));
    EXPECT_EQ(GetFileType(file), FILE_TYPE_DISK);
}

TEST_F(Files, PositionsGoBeyondTwoAndFourGigabytes)
{
    const HANDLE file = newFile("big");
    EXPECT_EQ(SetFilePointer(file, static_cast<LONG>(0xFFFFFFF0u), nullptr, FILE_BEGIN), 0xFFFFFFF0u);
    write(file, "near the limit");
    LONG high = 0;
    EXPECT_EQ(SetFilePointer(file, 0, &high, FILE_CURRENT), 0xFFFFFFFEu);
    EXPECT_EQ(high, 0);
    write(file, "!");
    SetLastError(1);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 0xFFFFFFFFu);
    EXPECT_EQ(GetLastError(), NO_ERROR); // a position, no failure
    DWORD upper = 1;
    EXPECT_EQ(GetFileSize(file, &upper), 0xFFFFFFFFu);
    EXPECT_EQ(upper, 0u);
    high = 2;
    EXPECT_EQ(SetFilePointer(file, 6, &high, FILE_BEGIN), 6u);
    EXPECT_EQ(high, 2);
    write(file, "x");
    EXPECT_EQ(GetFileSize(file, &upper), 7u);
    EXPECT_EQ(upper, 2u);
    EXPECT_EQ(SetFilePointer(file, -7, nullptr, FILE_CURRENT), INVALID_SET_FILE_POINTER); // beyond 32 bits
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    SetFilePointer(file, 5, nullptr, FILE_BEGIN);
    EXPECT_EQ(SetFilePointer(file, -6, nullptr, FILE_CURRENT), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(GetLastError(), ERROR_NEGATIVE_SEEK);
    high = -1;
    EXPECT_EQ(SetFilePointer(file, -6, &high, FILE_CURRENT), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 5u); // where it was
}

TEST_F(Files, OverlappedTransfersTakeTheirOwnPlace)
{
    const HANDLE file = create("f", readWrite, 0, CREATE_NEW, FILE_FLAG_OVERLAPPED);
    const HANDLE done = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    open.push_back(done);
    OVERLAPPED at;
    at.Offset = 3;
    at.hEvent = done;
    EXPECT_TRUE(WriteFile(file, "abc", 3, nullptr, &at));
    EXPECT_EQ(WaitForSingleObject(done, 0), WAIT_OBJECT_0);
    EXPECT_EQ(at.InternalHigh, 3u);
    char text[8];
    at.Offset = 4;
    EXPECT_TRUE(ReadFile(file, text, 8, nullptr, &at));
    EXPECT_EQ(std::string_view(text, at.InternalHigh), "bc");
    at.Offset = 6;
    EXPECT_FALSE(ReadFile(file, text, 8, nullptr, &at));
    EXPECT_EQ(GetLastError(), ERROR_HANDLE_EOF);
    at.OffsetHigh = 0xFFFFFFFF;
    EXPECT_FALSE(ReadFile(file, text, 8, nullptr, &at));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(Files, RightsAndKindsAreKept)
{
    put("f", "abc");
    const HANDLE reader = create("f", GENERIC_READ, shareAll, OPEN_EXISTING);
    const HANDLE writer = create("f", GENERIC_WRITE, shareAll, OPEN_EXISTING);
    const HANDLE looker = create("f", 0, 0, OPEN_EXISTING);
    const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    open.push_back(event);
    DWORD moved;
    char byte = 'x';
    EXPECT_FALSE(WriteFile(reader, &byte, 1, &moved, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(ReadFile(writer, &byte, 1, &moved, nullptr));
    EXPECT_FALSE(ReadFile(looker, &byte, 1, &moved, nullptr));
    EXPECT_FALSE(SetEndOfFile(reader));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(GetFileSize(looker, nullptr), 3u);
    EXPECT_FALSE(ReadFile(event, &byte, 1, &moved, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(WaitForSingleObject(reader, 0), WAIT_FAILED);
    EXPECT_FALSE(ReadFile(reader, nullptr, 1, &moved, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_NOACCESS);
}

TEST_F(Files, DeletionMindsWhoHasTheFileOpen)
{
    put("f", "abc");
    const HANDLE holder = create("f", GENERIC_READ, shareAll, OPEN_EXISTING);
    EXPECT_FALSE(DeleteFileA(path("f").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    CloseHandle(holder);
    open.clear();
    EXPECT_TRUE(DeleteFileA(path("f").c_str()));
    EXPECT_FALSE(DeleteFileA(path("f").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(DeleteFileA(folder.Path().c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    const HANDLE brief = create("t", readWrite, 0, CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE);
    EXPECT_TRUE(std::filesystem::exists(folder / "t"));
    CloseHandle(brief);
    open.clear();
    EXPECT_FALSE(std::filesystem::exists(folder / "t"));
}

TEST_F(Files, ADotHidesAFolderHoweverItsNameEnds)
{
    ASSERT_TRUE(CreateDirectoryA((folder / ".dir").c_str(), nullptr));
    for (const char* end : {"", "/", "//"})
        EXPECT_EQ(GetFileAttributesA(((folder / ".dir") + end).c_str()),
                  FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN)
            << end;
    for (const char* end : {"/.", "/..", "/./"})
        EXPECT_FALSE(GetFileAttributesA(((folder / ".dir") + end).c_str()) & FILE_ATTRIBUTE_HIDDEN) << end;
}

TEST_F(Files, AppendsFromManyThreadsToOneHandleLoseNothing)
{
    const HANDLE file = newFile("f");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([file] {
            for (int turn = 0; turn < 200; ++turn) write(file, "0123456789");
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(sizeOf("f"), 8000u);
}

// The other process of errorInChild; runs instead of the tests.
[[gnu::constructor]] void openForParent(int count, char** arguments, char**)
{
    if (count != 5 || std::strcmp(arguments[1], "--open") != 0) return;
    const HANDLE file =
        CreateFileA(arguments[2], static_cast<DWORD>(std::stoul(arguments[3])),
                    static_cast<DWORD>(std::stoul(arguments[4])), nullptr, OPEN_EXISTING, 0, nullptr);
    ::_exit(file == INVALID_HANDLE_VALUE ? static_cast<int>(GetLastError()) : 0);
}

} // namespace
