#include "model/NewsFolder.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace prompter;

namespace {

class Newsroom : public testing::Test {
protected:
    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(m_folder / name, std::ios::binary) << text;
    }
    std::string Look()
    {
        std::string seen;
        for (const NewsFolder::News& one : m_news.Look()) seen += one.name + "=" + one.bytes + ";";
        return seen;
    }

    TempFolder m_folder;
    NewsFolder m_news{m_folder.Path()};
};

TEST_F(Newsroom, AFileCountsOnceItHasStoodStill)
{
    Write("a.txt", "one");
    EXPECT_EQ(Look(), "");
    Write("a.txt", "one and more");
    EXPECT_EQ(Look(), "") << "it still grows";
    EXPECT_EQ(Look(), "a.txt=one and more;");
    EXPECT_EQ(Look(), "");
    Write("a.txt", "two");
    EXPECT_EQ(Look() + Look(), "a.txt=two;");
}

TEST_F(Newsroom, OnlyPlainTextFilesOfTheFolderCount)
{
    Write("b.part", "unfinished");
    Write("huge.txt", std::string(NewsFolder::largestNews + 1, 'x'));
    std::filesystem::create_directory(m_folder / "c.txt");
    std::filesystem::create_symlink("/etc/hostname", m_folder / "d.txt");
    EXPECT_EQ(Look() + Look(), "");
    std::filesystem::remove_all(m_folder.Path());
    EXPECT_EQ(Look(), "") << "a folder that is gone has no news";
}

} // namespace
