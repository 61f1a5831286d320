// Archives of other makers, and those that mean harm.
#include "corekit/stores/MiniUnz.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {
namespace fs = std::filesystem;

std::vector<std::string> shown;
int answer = IDYES;

int Record(CWnd*, const char* text, UINT flags)
{
    shown.emplace_back(text);
    return (flags & MB_TYPEMASK) == MB_YESNO ? answer : IDOK;
}

class MiniUnz : public testing::Test {
protected:
    void SetUp() override
    {
        shown.clear();
        answer = IDYES;
        m_before = SetMessageBoxHandler(&Record);
        fs::create_directory(m_folder / "out");
    }
    void TearDown() override { SetMessageBoxHandler(m_before); }

    void Shell(const std::string& command)
    {
        ASSERT_EQ(std::system(("cd '" + m_folder.Path() + "' && " + command).c_str()), 0) << command;
    }
    // An archive of the entries that the lines of a script add to `z`.
    void Python(const std::string& lines)
    {
        WriteWhole(m_folder / "make.py", "import zipfile,sys\nz=zipfile.ZipFile('a.zip','w')\n" + lines);
        Shell("python3 make.py");
    }
    bool Unzip(const char* password = nullptr, const char* one = nullptr)
    {
        m_memory.Create(1 << 16, 1 << 20);
        return CMiniUnz().unzip(m_toMemory, m_memory, (m_folder / "a.zip").c_str(), one,
                                (m_folder / "out").c_str(), m_withoutPath, m_overwrite, password);
    }
    std::string Out(const std::string& name) { return ReadWhole(m_folder / ("out/" + name)); }
    std::string Memory()
    {
        return {static_cast<const char*>(m_memory.GetMemoryBufferPointer()), m_memory.GetSize()};
    }
    std::size_t FilesIn(const std::string& folder)
    {
        const fs::recursive_directory_iterator all(folder);
        return static_cast<std::size_t>(std::count_if(begin(all), end(all), [](const auto& entry) {
            return !entry.is_directory() || entry.is_symlink();
        }));
    }

    TempFolder m_folder;
    CMemoryStream m_memory;
    bool m_toMemory = false;
    int m_withoutPath = 0;
    int m_overwrite = 1;

private:
    MessageBoxHandler m_before = nullptr;
};
} // namespace

TEST_F(MiniUnz, ArchivesOfEveryMakerComeOutWhole)
{
    Shell("mkdir -p in/deep/er in/hollow && cd in && seq 100000 > deep/numbers && : > nothing && "
          "echo u > 'Bücher ب.txt' && head -c 300000 /dev/urandom > deep/er/noise && touch -d "
          "2001-02-03T04:05:06 nothing");
    for (const char* make :
         {"zip -qr ../a.zip .", "zip -q0r ../a.zip .", "zip -qDr ../a.zip . && zip -q ../a.zip hollow",
          "7z a -tzip -bso0 -bsp0 ../a.zip .",
          "python3 -c 'import shutil; shutil.make_archive(\"../a\",\"zip\",\".\")'",
          "cat deep/numbers | zip -q s.zip - && rm s.zip && zip -qr - . > ../a.zip"}) {
        Shell("rm -rf a.zip out && mkdir out && cd in && " + std::string(make));
        EXPECT_TRUE(Unzip()) << make;
        EXPECT_EQ(std::system(("diff -r " + (m_folder / "in") + " " + (m_folder / "out")).c_str()), 0)
            << make;
    }
    for (const std::string& text : shown) EXPECT_EQ(text.rfind("Creating directory: ", 0), 0u) << text;
    EXPECT_EQ(fs::last_write_time(m_folder / "out/nothing"), fs::last_write_time(m_folder / "in/nothing"));
}

TEST_F(MiniUnz, PasswordsOpenWhatTheyClosed)
{
    Shell("mkdir in && cd in && seq 50000 > numbers && printf secret > short && : > none");
    for (const char* make : {"zip -qr -P word ../a.zip .", "zip -qr0 -P word ../a.zip .",
                             "zip -qr -P word - . > ../a.zip", "7z a -tzip -pword -bso0 -bsp0 ../a.zip ."}) {
        Shell("rm -rf a.zip out && mkdir out && cd in && " + std::string(make));
        shown.clear();
        EXPECT_TRUE(Unzip("word"));
        EXPECT_EQ(shown, std::vector<std::string>{}) << make;
        EXPECT_EQ(std::system(("diff -r " + (m_folder / "in") + " " + (m_folder / "out")).c_str()), 0)
            << make;
        EXPECT_FALSE(Unzip(nullptr, "numbers")) << make;
        EXPECT_FALSE(Unzip("sword", "numbers")) << make;
        EXPECT_EQ(shown.size(), 2u) << make;
    }
    Shell("rm a.zip && cd in && 7z a -tzip -pword -mem=AES256 -bso0 -bsp0 ../a.zip numbers");
    shown.clear();
    EXPECT_FALSE(Unzip("word", "numbers"));
    EXPECT_EQ(shown, std::vector<std::string>{"Error with zipfile in unzOpenCurrentFile"});
}

TEST_F(MiniUnz, NoEntryLeavesTheFolder)
{
    Shell("mkdir outside && ln -s ../outside out/link && ln -s ../outside/victim out/victim && echo old > "
          "outside/victim");
    const char* names[] = {
        "../evil",        "a/../../evil", "..\\\\evil", "/tmp/corekit-evil", "\\\\evil",
        "C:/evil",        "c:evil",       "link/evil",  "link\\\\evil",      "victim",
        "link/deep/evil", "a/..",         "../folder/", "link/folder/",      "/tmp/corekit-evil/"};
    std::string lines;
    for (const char* name : names) lines += "z.writestr('" + std::string(name) + "','evil')\n";
    Python(lines + "i=zipfile.ZipInfo('pointer'); i.create_system=3; i.external_attr=0o120777<<16\n"
                   "z.writestr(i,'../outside')\nz.writestr('pointer/"
                   "evil','evil')\nz.writestr('sound','sound')\nz.close()\n");
    EXPECT_TRUE(Unzip());
    const std::string refused = "Error opening " + (m_folder / "out") + "\\";
    for (const std::string& text : shown) EXPECT_EQ(text.rfind(refused, 0), 0u) << text;
    EXPECT_EQ(shown.size(), std::size(names) + 1);
    EXPECT_EQ(ReadWhole(m_folder / "outside/victim"), "old\n");
    EXPECT_EQ(FilesIn(m_folder / "outside"), 1u);
    EXPECT_FALSE(fs::exists(m_folder / "evil") || fs::exists("/tmp/corekit-evil") ||
                 fs::exists(m_folder / "folder"));
    EXPECT_EQ(Out("sound"), "sound");
    EXPECT_EQ(Out("pointer/evil"), "evil"); // the link was not made, so this is a plain folder
    EXPECT_FALSE(Unzip(nullptr, "../evil"));
}

TEST_F(MiniUnz, WithoutPathsOnlyTheLastPartCounts)
{
    Python(
        "z.writestr('../../up/name','one')\nz.writestr('folder/','')\nz.writestr('x/..','no')\nz.close()\n");
    m_withoutPath = 1;
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(shown.size(), 1u);
    EXPECT_EQ(Out("name"), "one");
    EXPECT_FALSE(fs::exists(m_folder / "out/folder"));
}

TEST_F(MiniUnz, TenThousandEntriesAndNamesOfEveryLength)
{
    const std::string longName(200, 'n');
    Python("for i in range(10000): z.writestr('d%d/f%d'%(i%100,i),str(i))\nz.writestr('" + longName + "/" +
           longName + "','long')\nz.writestr('" + std::string(5000, 'x') + "','too long')\nz.close()\n");
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(FilesIn(m_folder / "out"), 10001u);
    EXPECT_EQ(Out("d99/f9999"), "9999");
    EXPECT_EQ(Out(longName + "/" + longName), "long");
    EXPECT_EQ(shown.size(), 1u);
    EXPECT_TRUE(Unzip(nullptr, "d42/f4242"));
    EXPECT_EQ(Memory(), "4242");
    EXPECT_FALSE(Unzip(nullptr, "D42/f4242"));
}

TEST_F(MiniUnz, AnExistingFileIsAskedFor)
{
    Python("z.writestr('kept','new')\nz.close()\n");
    WriteWhole(m_folder / "out/kept", "old");
    m_overwrite = 0;
    answer = IDNO;
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(Out("kept"), "old");
    EXPECT_EQ(Memory(), "");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].rfind("The file ", 0), 0u);
    EXPECT_EQ(shown[0].find("kept"), std::string::npos);
    answer = IDYES;
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(Out("kept"), "new");
}

TEST_F(MiniUnz, ToMemoryMakesNoFileAndToFilesCopies)
{
    Python("z.writestr('a','one ')\nz.writestr('d/','')\nz.writestr('d/b','two')\nz.close()\n");
    m_toMemory = true;
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(Memory(), "one two");
    EXPECT_EQ(FilesIn(m_folder / "out"), 0u);
    EXPECT_EQ(shown, std::vector<std::string>{"Creating directory: d/"});
    EXPECT_TRUE(fs::is_directory(m_folder / "out/d"));
    m_toMemory = false;
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(Memory(), "one two");
    EXPECT_EQ(Out("d/b"), "two");
}

TEST_F(MiniUnz, WhatItOpensStaysInThisProcess)
{
    Python("z.writestr('a','new')\nz.close()\n");
    std::ofstream(m_folder / "out/a") << "old";
    m_overwrite = 0;
    static int leaking;
    leaking = 0;
    const auto before = SetMessageBoxHandler([](CWnd*, const char*, UINT) {
        for (int fd = 3; fd < 100; ++fd) {
            const int flags = fcntl(fd, F_GETFD);
            char path[256] = "";
            if (flags < 0 || readlink(("/proc/self/fd/" + std::to_string(fd)).c_str(), path, 255) <= 0)
                continue;
            leaking += std::string(path).ends_with(".zip") && (flags & FD_CLOEXEC) == 0;
        }
        return int{IDYES};
    });
    EXPECT_TRUE(Unzip());
    SetMessageBoxHandler(before);
    EXPECT_EQ(leaking, 0);
    EXPECT_EQ(Out("a"), "new");
}

TEST_F(MiniUnz, DamageIsReported)
{
    EXPECT_FALSE(Unzip());
    EXPECT_TRUE(shown.empty());
    Python("z.writestr('first','" + std::string(500, 'f') + "')\nz.writestr('second','s')\nz.close()\n");
    const std::string sound = ReadWhole(m_folder / "a.zip");
    std::string wrong = sound;
    wrong[100] = 'g';
    WriteWhole(m_folder / "a.zip", wrong);
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(shown, std::vector<std::string>{"Error with zipfile in unzCloseCurrentFile"});
    EXPECT_FALSE(fs::exists(m_folder / "out/second"));
    EXPECT_FALSE(Unzip(nullptr, "first"));
    for (std::size_t cut = 0; cut < sound.size(); cut += 7) { // whatever is left must only end
        WriteWhole(m_folder / "a.zip", sound.substr(0, cut));
        Unzip();
    }
}

TEST_F(MiniUnz, DamageOfWhatIsEncryptedIsSeenToo)
{
    WriteWhole(m_folder / "first", std::string(500, 'f'));
    for (const char* way : {"-0", "-9"}) {
        Shell(std::string("rm -f a.zip && zip -q -P word ") + way + " a.zip first");
        std::string bytes = ReadWhole(m_folder / "a.zip");
        bytes[bytes.find("PK\1\2") - 20] ^= 1; // before the sums, which stand behind the data
        WriteWhole(m_folder / "a.zip", bytes);
        shown.clear();
        EXPECT_TRUE(Unzip("word"));
        EXPECT_EQ(shown.size(), 1u) << way;
        EXPECT_FALSE(fs::exists(m_folder / "out/first")) << way;
    }
}

// Small archives grow without end where entries share their bytes.
TEST_F(MiniUnz, EntriesThatOverlapAreRefused)
{
    Python("z.writestr('x','" + std::string(500, 'x') + "')\nz.writestr('x','y')\nz.close()\n");
    std::string bytes = ReadWhole(m_folder / "a.zip");
    const std::size_t second = bytes.rfind("PK\1\2");
    bytes.replace(second + 42, 4, 4, '\0');
    WriteWhole(m_folder / "a.zip", bytes);
    EXPECT_TRUE(Unzip());
    EXPECT_EQ(shown, std::vector<std::string>{"Error with zipfile in unzGetGlobalInfo"});
    EXPECT_EQ(FilesIn(m_folder / "out"), 0u);
}

// A sink, since the copy in memory is the caller's wish.
class Nowhere : public CMemoryStream {
protected:
    void InternalWrite(const void*, DWORD count) override { total += count; }

public:
    DWORDLONG total = 0;
};

TEST_F(MiniUnz, ABombTakesNoMemory)
{
    Python("z.close()\n"
           "z=zipfile.ZipFile('a.zip','w',zipfile.ZIP_DEFLATED)\n"
           "with z.open('bomb','w') as f:\n for i in range(200): f.write(bytes(1<<20))\nz.close()\n");
    Nowhere nowhere;
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    EXPECT_TRUE(CMiniUnz().unzip(true, nowhere, (m_folder / "a.zip").c_str(), nullptr, "", 0, 1, nullptr));
    getrusage(RUSAGE_SELF, &after);
    EXPECT_EQ(nowhere.total, 200u << 20);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 16 << 10);
}
