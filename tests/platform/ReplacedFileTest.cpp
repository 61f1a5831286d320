#include "corekit/platform/ReplacedFile.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/HarmlessText.h"
#include "corekit/platform/Profiles.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TempFolder.h"

#include <cerrno>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
namespace fs = std::filesystem;
using corekit::HarmlessText;
using corekit::LineEnds;
using corekit::ReplacedFile;

int failingSync = 0; // the how manyth call fails from here on; 0 is none

std::size_t FilesIn(const TempFolder& folder)
{
    const fs::directory_iterator all(folder.Path());
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

bool Replace(const std::string& target, const std::string& bytes)
{
    ReplacedFile file(target);
    return file && file.Write(bytes) && file.Commit();
}
} // namespace

// In place of the system's, for the library too.
extern "C" [[gnu::visibility("default")]] int fsync(int fd)
{
    if (failingSync > 0 && --failingSync == 0) return errno = EIO, -1;
    return reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"))(fd);
}

TEST(ReplacedFile, KeepsRightsAndFollowsLinks)
{
    const TempFolder folder;
    WriteWhole(folder / "secret", "old");
    fs::permissions(folder / "secret", fs::perms{0640});
    fs::create_symlink("secret", folder / "link");
    fs::create_symlink("not yet", folder / "dangling");
    EXPECT_TRUE(Replace(folder / "link", "new"));
    EXPECT_TRUE(Replace(folder / "dangling", "made"));
    EXPECT_EQ(ReadWhole(folder / "secret"), "new");
    EXPECT_EQ(fs::status(folder / "secret").permissions(), fs::perms{0640});
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(ReadWhole(folder / "not yet"), "made");
    EXPECT_EQ(FilesIn(folder), 4u);
}

TEST(ReplacedFile, WhatIsNoPlainFileIsWrittenToDirectly)
{
    const TempFolder folder;
    EXPECT_TRUE(Replace("/dev/null", "away"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_FALSE(Replace("/dev/full", "away"));
    EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(Replace(folder / "pipe", "nobody reads"));
    EXPECT_FALSE(Replace(folder.Path(), "a folder"));
    EXPECT_FALSE(Replace(folder / "none/x", "no folder"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST(ReplacedFile, EveryFailureIsReportedAndTheOldContentStays)
{
    const TempFolder folder;
    WriteWhole(folder / "x", "old");
    {
        ReplacedFile given(folder / "x"), up(folder / "x");
    }
    failingSync = 1;
    EXPECT_FALSE(Replace(folder / "x", "new"));
    EXPECT_EQ(GetLastError(), ERROR_IO_DEVICE);
    EXPECT_EQ(ReadWhole(folder / "x"), "old");
    failingSync = 2; // the folder's
    EXPECT_FALSE(Replace(folder / "x", "new"));
    failingSync = 2;
    EXPECT_FALSE(WritePrivateProfileStringA("a", "b", "c", (folder / "x.ini").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_IO_DEVICE);
    EXPECT_EQ(FilesIn(folder), 2u);
}

TEST(ReplacedFile, RemovesWhatKilledWritersLeftAndNothingElse)
{
    const TempFolder folder;
    WriteWhole(folder / "precious", "kept");
    std::optional<ReplacedFile> living(std::in_place, folder / "x");
    const std::string ofLiving = living->Path();
    if (const pid_t child = fork(); child == 0) {
        new ReplacedFile(folder / "x");
        _exit(0);
    } else {
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
    }
    EXPECT_EQ(FilesIn(folder), 3u);
    EXPECT_TRUE(Replace(folder / "x", "whole"));
    EXPECT_EQ(FilesIn(folder), 3u); // the living one's is still there
    EXPECT_TRUE(living->Write("last") && living->Commit());
    EXPECT_EQ(ReadWhole(folder / "x"), "last");

    fs::create_symlink("precious", ofLiving); // planted
    EXPECT_TRUE(Replace(folder / "x", "beside it"));
    EXPECT_EQ(ReadWhole(folder / "precious"), "kept");
    EXPECT_EQ(ReadWhole(folder / "x"), "beside it");
}

TEST(HarmlessText, ShowsWhatWouldSteerATerminal)
{
    for (CaseRow row : CaseRows(TEST_DATA "/harmless_text.tsv")) {
        const std::string text = row.Bytes();
        EXPECT_EQ(HarmlessText(text, LineEnds::kept), row.Bytes()) << row.Line();
    }
    EXPECT_EQ(HarmlessText("x\r\nDELE y", LineEnds::escaped), "x\\x0D\\x0ADELE y");
}
