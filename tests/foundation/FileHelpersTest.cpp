// Names, facts, deletion and creation against a real tree.
#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/FileDeletion.h"
#include "corekit/foundation/FileNames.h"
#include "corekit/foundation/FileState.h"
#include "corekit/platform/FindFile.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace {
namespace fs = std::filesystem;

class FileHelpers : public testing::Test {
protected:
    std::string Make(const std::string& name)
    {
        const std::string path = m_folder / name;
        fs::create_directories(fs::path(path).parent_path());
        WriteWhole(path, "x");
        return path;
    }
    void Age(const std::string& path, std::chrono::seconds age)
    {
        fs::last_write_time(path, fs::file_time_type::clock::now() - age);
    }
    bool Exists(const std::string& name)
    {
        return fs::symlink_status(m_folder / name).type() != fs::file_type::not_found;
    }

    TempFolder m_folder;
};
constexpr std::chrono::hours day(24);
} // namespace

TEST_F(FileHelpers, PartsOfAPathAreThoseOfItsText)
{
    CString (*const parts[])(const char*) = {File_GetNameAndExt, File_GetNameOnly, File_GetExtension,
                                             File_GetDirectory};
    for (CaseRow row : CaseRows(TEST_DATA "/paths.tsv")) {
        const std::string path = row.Bytes();
        for (const auto part : parts) EXPECT_EQ(part(path.c_str()), row.Bytes().c_str()) << row.Line();
    }
    for (const auto part : parts) {
        EXPECT_EQ(part(""), "");
        EXPECT_EQ(part(nullptr), "");
    }
    EXPECT_STREQ(File_GetDisplayName((Make("d/show.txt")).c_str()), "show.txt");
    EXPECT_STREQ(File_GetDisplayName("no\\such"), "no\\such");
}

TEST_F(FileHelpers, SizesAndTimesAreThoseOfTheFile)
{
    const std::string path = Make("file");
    fs::resize_file(path, (5ull << 32) + 7);
    EXPECT_EQ(File_GetSize(path.c_str()), 7u);
    EXPECT_EQ(File_GetSize((m_folder / "none").c_str()), 0xFFFFFFFFu);
    fs::create_directory_symlink(m_folder.Path(), m_folder / "folder");
    for (const std::string& unsized : {m_folder.Path(), m_folder / "folder", std::string("/dev/null")})
        EXPECT_EQ(File_GetSize(unsized.c_str()), 0u) << unsized;
    EXPECT_EQ(File_GetSize(""), 0xFFFFFFFFu);
    struct timespec times[2] = {{0, UTIME_OMIT}, {1'000'000'000, 123'456'700}};
    utimensat(AT_FDCWD, path.c_str(), times, 0);
    _WIN32_FILE_ATTRIBUTE_DATA data{};
    EXPECT_EQ(GetFileInformation(path.c_str(), data), 1);
    EXPECT_EQ(data.nFileSizeHigh, 5u);
    EXPECT_EQ(data.dwFileAttributes, FILE_ATTRIBUTE_NORMAL);
    FILETIME time;
    EXPECT_EQ(File_GetLastModifyTime(path.c_str(), time), 1);
    EXPECT_EQ(DWORDLONG{time.dwHighDateTime} << 32 | time.dwLowDateTime, 126'444'736'001'234'567u);
    EXPECT_EQ(GetFileInformation((m_folder / "none").c_str(), data), 1); // a missing file is no failure
    EXPECT_EQ(data.dwFileAttributes, 0u);
}

TEST_F(FileHelpers, FreeBytesAreCountedInClusters)
{
    struct statvfs volume;
    ASSERT_EQ(statvfs(m_folder.Path().c_str(), &volume), 0);
    const double expected = static_cast<double>(std::min<fsblkcnt_t>(volume.f_bavail, 0xFFFFFFFF)) *
                            static_cast<double>(volume.f_frsize);
    EXPECT_NEAR(static_cast<double>(GetFreeBytesOnDisk(m_folder.Path().c_str())), expected,
                expected / 4 + 1e8);
    EXPECT_EQ(GetFreeBytesOnDisk("C:\\anything"), 0u);
    EXPECT_EQ(GetFreeBytesOnDisk((m_folder / "none").c_str()), 0u);
}

TEST_F(FileHelpers, ReadOnlyFilesGoOnlyByForce)
{
    const std::string path = Make("file");
    chmod(path.c_str(), 0444);
    EXPECT_EQ(ThrownLine([&] { File_DeleteFile(path.c_str(), 0); }), "Delete file failed, file=" + path);
    EXPECT_TRUE(Exists("file"));
    File_DeleteFile(path.c_str(), 1);
    EXPECT_FALSE(Exists("file"));
    EXPECT_EQ(ThrownLine([&] { File_DeleteFile(path.c_str(), 0); }), "nothing");
    EXPECT_EQ(ThrownLine([&] { File_DeleteFile(m_folder.Path().c_str(), 1); }),
              "Delete file failed, file=" + m_folder.Path());
}

TEST_F(FileHelpers, PatternsTakeFilesAloneAndEitherSeparator)
{
    for (const char* name : {"logs/a.log", "logs/b.log", "logs/c.txt", "logs/noext", "logs/sub.log/inside"})
        Make(name);
    File_DeleteFilesMatchingPattern((m_folder / "logs\\?.log").c_str(), 0);
    EXPECT_FALSE(Exists("logs/a.log") || Exists("logs/b.log"));
    EXPECT_TRUE(Exists("logs/c.txt") && Exists("logs/sub.log/inside"));
    File_DeleteFilesMatchingPattern((m_folder / "logs/*.*").c_str(), 0);
    EXPECT_FALSE(Exists("logs/c.txt") || Exists("logs/noext"));
    EXPECT_TRUE(Exists("logs/sub.log/inside"));
    File_DeleteFilesMatchingPattern((m_folder / "none/*").c_str(), 0);
}

TEST_F(FileHelpers, AgeCountsWholeDays)
{
    const std::chrono::seconds minute(60);
    Age(Make("young"), day - minute);
    Age(Make("day"), day + minute);
    Age(Make("exact"), 2 * day + minute);
    Age(Make("old"), 3 * day + minute);
    Age(Make("future"), -100 * day);
    File_DeleteFilesOlderThan((m_folder / "*").c_str(), 2, 0);
    EXPECT_TRUE(Exists("young") && Exists("day") && Exists("exact") && Exists("future"));
    EXPECT_FALSE(Exists("old"));
    File_DeleteFilesOlderThan((m_folder / "*").c_str(), 0, 0);
    EXPECT_TRUE(Exists("young") && Exists("future"));
    EXPECT_FALSE(Exists("day") || Exists("exact"));
}

TEST_F(FileHelpers, DeletingATreeFollowsNoLink)
{
    const std::string kept = Make("outside/kept");
    for (const char* name : {"tree/a", "tree/b/c", "tree/.hidden", "tree/\xFC\x81/d"}) Make(name);
    fs::create_directory_symlink(m_folder / "outside", m_folder / "tree/out");
    fs::create_directory_symlink(".", m_folder / "tree/b/loop");
    fs::create_symlink("nowhere", m_folder / "tree/broken");
    fs::create_directory_symlink(m_folder / "tree", m_folder / "alias");
    chmod((m_folder / "tree/a").c_str(), 0444);
    const std::string tree = m_folder / "tree";
    EXPECT_EQ(ThrownLine([&] { File_DeleteDirectoryAndContents(tree.c_str(), 0); }),
              "Delete file failed, file=" + tree + "\\a");
    File_DeleteDirectoryAndContents((m_folder / "alias").c_str(), 1);
    EXPECT_FALSE(Exists("alias"));
    EXPECT_TRUE(Exists("tree/a"));
    File_DeleteDirectoryAndContents(tree.c_str(), 1);
    EXPECT_FALSE(Exists("tree"));
    EXPECT_TRUE(fs::exists(kept));
    EXPECT_EQ(ThrownLine([&] { File_DeleteDirectoryAndContents(tree.c_str(), 1); }),
              "Delete directory failed, directory=" + tree);
}

TEST_F(FileHelpers, ANameWithASeparatorLeadsNowhere)
{
    for (const char* name : {"kept", "box/..\\kept", "box/plain"}) Make(name);
    const std::string box = m_folder / "box";
    File_DeleteFilesMatchingPattern((m_folder / "box/..*").c_str(), 1);
    EXPECT_EQ(ThrownLine([&] { File_DeleteDirectoryAndContents(box.c_str(), 1); }),
              "Delete directory failed, directory=" + box);
    EXPECT_TRUE(Exists("kept") && Exists("box/..\\kept"));
    EXPECT_FALSE(Exists("box/plain"));
}

TEST_F(FileHelpers, ATreeDeeperThanAPathEndsWithAMessage)
{
    const fs::path before = fs::current_path();
    fs::create_directory(m_folder / "deep");
    fs::current_path(m_folder / "deep");
    for (int i = 0; i < 5000; ++i) {
        fs::create_directory("d");
        fs::current_path("d");
    }
    fs::current_path(before);
    const std::string message =
        ThrownLine([&] { File_DeleteDirectoryAndContents((m_folder / "deep").c_str(), 1); });
    EXPECT_EQ(message.rfind("Delete directory failed, directory=", 0), 0u) << message;
    std::system(("rm -rf " + m_folder.Path() + "/deep").c_str());
}

TEST_F(FileHelpers, FoldersAreMadeWithTheirParents)
{
    CreateDirectoryAndParents((m_folder / "a\\b/c\\d\\").c_str());
    EXPECT_TRUE(fs::is_directory(m_folder / "a/b/c/d"));
    CreateDirectoryAndParents((m_folder / "a/b").c_str());
    const std::string failed = "Failed creating a directory.";
    Make("file");
    EXPECT_EQ(ThrownLine([&] { CreateDirectoryAndParents((m_folder / "file/x/y").c_str()); }), failed);
    EXPECT_EQ(ThrownLine([] { CreateDirectoryAndParents(""); }), failed);
    EXPECT_EQ(ThrownLine([] { CreateDirectoryAndParents(nullptr); }), failed);
    EXPECT_EQ(ThrownLine([&] { CreateDirectoryAndParents((m_folder / std::string(300, 'n')).c_str()); }),
              failed);
    EXPECT_EQ(ThrownLine([&] {
                  CreateDirectoryAndParents(
                      std::string(100'000, '/').append("a/b").append(5000, 'c').c_str());
              }),
              failed);
}

TEST_F(FileHelpers, ASearchOutlivesItsMatchesAndIsNothingToWaitFor)
{
    for (int i = 0; i < 50; ++i) Make("many/f" + std::to_string(i));
    WIN32_FIND_DATAA data;
    const HANDLE search = FindFirstFileA((m_folder / "many/*").c_str(), &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    fs::remove_all(m_folder / "many");
    while (FindNextFileA(search, &data)) EXPECT_EQ(data.cFileName[0], '.');
    EXPECT_EQ(FindNextFileA(search, &data), 0);
    EXPECT_TRUE(FindClose(search));
    EXPECT_FALSE(FindClose(search));
    EXPECT_FALSE(FindNextFileA(search, &data));
}
