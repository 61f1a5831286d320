#include "corekit/stores/OleFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Storage.h"
#include "corekit/stores/OleStream.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace {
constexpr UINT readWrite = 0x12;

std::string Output(const std::string& command)
{
    std::string text;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
    pclose(pipe);
    return text;
}

class OleFile : public testing::Test {
protected:
    void Put(COleFile& file, const WCHAR* name, const std::string& bytes)
    {
        const std::unique_ptr<COleStream> stream(file.CreateStream(name));
        stream->Write(bytes.data(), static_cast<DWORD>(bytes.size()));
        stream->Flush();
    }
    std::string Get(COleFile& file, const WCHAR* name)
    {
        const std::unique_ptr<COleStream> stream(file.OpenStream(name));
        std::string bytes(stream->GetSize(), ' ');
        stream->Read(bytes.data(), stream->GetSize());
        return bytes;
    }

    TempFolder m_folder;
    std::string m_path = m_folder / "file.cmp";
    const std::string m_large = std::string(70'000, 'L') + "end";
};

// A stream of 10 bytes that gives and takes at most four at once.
class ShortStream : public IStream {
    DWORD AddRef() override { return 1; }
    DWORD Release() override { return 0; }
    HRESULT Read(void* buffer, DWORD count, DWORD* done) override
    {
        std::memset(buffer, 'r', *done = std::min<DWORD>(count, 4));
        return S_OK;
    }
    HRESULT Write(const void*, DWORD count, DWORD* done) override
    {
        *done = std::min<DWORD>(count, 4);
        return S_OK;
    }
    HRESULT Seek(LONGLONG, DWORD, DWORDLONG* position) override
    {
        if (position) *position = m_size;
        return S_OK;
    }
    HRESULT SetSize(DWORDLONG) override { return S_OK; }

public:
    DWORDLONG m_size = 0;
};

// Naming a private member is allowed where a template is instantiated.
template <auto Member>
struct Opened {
    friend COleStream* AttachedTo(IStream* stream) { return Member(stream); }
};
COleStream* AttachedTo(IStream* stream);
template struct Opened<&COleFile::Attached>;
} // namespace

TEST_F(OleFile, OnlyWhatWasCommittedIsThereOnReopening)
{
    const _GUID id = {0x11223344, 0x5566, 0x7788, {1, 2, 3, 4, 5, 6, 7, 8}};
    COleFile file;
    file.Create(m_path.c_str(), 0);
    Put(file, u"Small", "abc");
    Put(file, u"Large", m_large);
    file.SetClassID(id);
    file.Commit();
    Put(file, u"Late", "lost");
    Put(file, u"SMALL", "changed");
    file.Close();

    ASSERT_EQ(file.Open(m_path.c_str(), readWrite), 1);
    EXPECT_EQ(Get(file, u"sMALL"), "abc");
    EXPECT_EQ(Get(file, u"Large"), m_large);
    EXPECT_EQ(ThrownLine([&] { file.OpenStream(u"Late"); }), "[OLE File] Open stream failed, name=Late");
    _GUID back{};
    EXPECT_EQ(file.GetClassID(back), 1);
    EXPECT_EQ(back, id);

    Put(file, u"Small", "changed");
    file.Commit();
    EXPECT_EQ(Get(file, u"Small"), "changed") << "after its source was replaced";
    EXPECT_EQ(Get(file, u"Large"), m_large);
    {
        const std::unique_ptr<COleStream> stream(file.OpenStream(u"Large"));
        stream->SeekToPos(65'530);
        stream->Write("across the page", 15);
        stream->Flush();
        file.Commit();
        stream->SeekToPos(5);
        stream->SetEndOfStream();
    }
    file.Commit();
    file.Close();
    ASSERT_EQ(file.Open(m_path.c_str(), 0x40), 1);
    EXPECT_EQ(Get(file, u"Large"), "LLLLL");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}), 1)
        << "nothing is left lying";
}

TEST_F(OleFile, CreateSparesExistingFilesUntilCommit)
{
    COleFile file;
    file.Create(m_path.c_str(), 0);
    Put(file, u"One", "1");
    file.Commit();
    file.Close();
    EXPECT_EQ(ThrownLine([&] { file.Create(m_path.c_str(), 0); }),
              "[OLE File] Cannot create the file, name=" + m_path);
    file.Create(m_path.c_str(), 1);
    EXPECT_NE(ThrownLine([&] { file.OpenStream(u"One"); }), "nothing");
    file.Close();
    ASSERT_EQ(file.Open(m_path.c_str(), readWrite), 1);
    EXPECT_EQ(Get(file, u"One"), "1");
    EXPECT_NE(ThrownLine([&] { file.Create((m_folder / "no/such").c_str(), 1); }), "nothing");
    EXPECT_EQ(Get(file, u"One"), "1") << "a failed create keeps what is open";
}

TEST_F(OleFile, SharingAndNamesAreGuarded)
{
    COleFile file, other;
    file.Create(m_path.c_str(), 0);
    EXPECT_EQ(other.Open(m_path.c_str(), readWrite), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(STG_E_SHAREVIOLATION));
    const std::u16string longest(31, u'n'), tooLong(32, u'n');
    Put(file, longest.c_str(), "x");
    for (const WCHAR* name : {u"", u"a/b", u"a:b", u"\xD800", tooLong.c_str()})
        EXPECT_NE(ThrownLine([&] { file.CreateStream(name); }), "nothing");
    const std::unique_ptr<COleStream> stream(file.OpenStream(longest.c_str()));
    EXPECT_NE(ThrownLine([&] { file.OpenStream(longest.c_str()); }), "nothing") << "it is open";
    char byte;
    file.Commit();
    file.Close();
    stream->Read(&byte, 1);
    EXPECT_EQ(byte, 'x') << "a stream outlives its file";

    ASSERT_EQ(file.Open(m_path.c_str(), 0x20), 1);
    ASSERT_EQ(other.Open(m_path.c_str(), 0x20), 1) << "readers share";
    const std::unique_ptr<COleStream> reader(file.OpenStream(longest.c_str()));
    reader->Write("y", 1);
    EXPECT_EQ(ThrownLine([&] { reader->Flush(); }), "[OLE Stream] Write to stream failed.");
    EXPECT_EQ(ThrownLine([&] { file.Commit(); }), "[OLE File] Commit() failed");
    WriteWhole(m_path, "plain text");
    EXPECT_FALSE(COleFile::IsOleFile(m_path.c_str()));
    EXPECT_FALSE(COleFile::IsOleFile((m_folder / "missing").c_str()));
}

TEST_F(OleFile, ItsDescriptorsStayInThisProcess)
{
    const std::string name = m_folder / "own.bin";
    COleFile file;
    file.Create(name.c_str(), 0);
    Put(file, u"part", "text");
    file.Commit();
    file.Close();
    ASSERT_TRUE(file.Open(file.GetFilename(), readWrite)); // its own name
    EXPECT_EQ(Get(file, u"part"), "text");
    int open = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry.path(), gone) != name) continue;
        ++open;
        EXPECT_NE(fcntl(std::stoi(entry.path().filename()), F_GETFD) & FD_CLOEXEC, 0);
    }
    EXPECT_GE(open, 2);
}

// A program that starts meanwhile gets none of them.
TEST_F(OleFile, NorDoesASaveShowItsDescriptorsToOtherPrograms)
{
    std::atomic<bool> isDone = false;
    std::atomic<int> seen = 0, shared = 0;
    std::thread looker([&] {
        std::error_code gone;
        while (!isDone)
            for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
                const auto target = std::filesystem::read_symlink(entry.path(), gone).string();
                if (target.find(".corekit-") == target.npos) continue;
                const int flags = fcntl(std::stoi(entry.path().filename()), F_GETFD);
                if (flags < 0 || std::filesystem::read_symlink(entry.path(), gone) != target) continue;
                ++seen;
                shared += (flags & FD_CLOEXEC) == 0;
            }
    });
    COleFile file;
    file.Create(m_path.c_str(), 0);
    for (int save = 0; save < 1000 && seen < 20; ++save) {
        Put(file, u"part", std::string(1 << 20, 'p'));
        file.Commit();
    }
    isDone = true;
    looker.join();
    EXPECT_GT(seen, 0);
    EXPECT_EQ(shared, 0);
}

TEST_F(OleFile, OtherProgramsReadOurs)
{
    COleFile file;
    file.Create(m_path.c_str(), 0);
    Put(file, u"Script", "Good evening");
    Put(file, u"Gro\u00DF \u05D0", m_large);
    for (char16_t name = u'a'; name <= u'z'; ++name) Put(file, std::u16string(3, name).c_str(), "letter");
    file.Commit();
    EXPECT_TRUE(COleFile::IsOleFile(m_path.c_str()));
    EXPECT_EQ(Output("gsf cat " + m_path + " Script"), "Good evening");
    EXPECT_EQ(Output("7z e -so " + m_path + " Script"), "Good evening");
    EXPECT_EQ(Output("7z e -so " + m_path + " 'Gro\u00DF \u05D0'"), m_large);
    const std::string listing = Output("7z t " + m_path);
    EXPECT_NE(listing.find("Everything is Ok"), std::string::npos) << listing;
    EXPECT_NE(listing.find("Files: 28"), std::string::npos) << listing;
}

TEST_F(OleFile, WeReadWhatAnotherProgramWrote)
{
    WriteWhole(m_folder / "one", "first");
    WriteWhole(m_folder / "two", m_large);
    Output("cd " + m_folder.Path() + " && gsf createole file.cmp one two");
    COleFile file;
    ASSERT_EQ(file.Open(m_path.c_str(), readWrite), 1);
    EXPECT_EQ(Get(file, u"ONE"), "first");
    EXPECT_EQ(Get(file, u"two"), m_large);
    Put(file, u"three", "added");
    file.Commit();
    EXPECT_EQ(Output("gsf cat " + m_path + " three"), "added");
    EXPECT_EQ(Output("gsf cat " + m_path + " two"), m_large);
}

TEST_F(OleFile, NoChangedByteOfAFileDoesHarm)
{
    {
        COleFile file;
        file.Create(m_path.c_str(), 0);
        Put(file, u"Small", "abc");
        Put(file, u"Large", m_large);
        file.Commit();
    }
    const std::string sound = ReadWhole(m_path);
    std::vector<std::size_t> places;
    for (std::size_t at = 0; at < 600; ++at) places.push_back(at);
    for (std::size_t at = sound.size() - 3000; at < sound.size(); at += 3) places.push_back(at);
    for (const std::size_t place : places) {
        std::string damaged = sound;
        damaged[place] = static_cast<char>(damaged[place] == '\xFF' ? 1 : '\xFF');
        WriteWhole(m_path, damaged);
        COleFile file;
        if (!file.Open(m_path.c_str(), 0x20)) continue;
        for (const WCHAR* name : {u"Small", u"Large"})
            ThrownLine([&] { EXPECT_LE(Get(file, name).size(), sound.size()); });
    }
}

TEST_F(OleFile, AShortTransferIsNamedForWhatItWas)
{
    ShortStream source;
    const std::unique_ptr<COleStream> writer(AttachedTo(&source));
    writer->Write("0123456789", 10);
    EXPECT_EQ(Thrown([&] { writer->Flush(); }),
              "[OLE Stream] Write to stream failed.\nThe compound file did not take all of the data.\r\n");
    source.m_size = 10;
    EXPECT_EQ(
        Thrown([&] { delete AttachedTo(&source); }),
        "[OLE Stream] Unable to read from the stream.\nThe compound file did not give all of the data.\r\n");
}

TEST_F(OleFile, ThousandsOfStreamsAndLargeOnesAreReadByOthers)
{
    std::string large(8 << 20, '\0'); // more than the header can list the tables of
    for (std::size_t at = 0; at < large.size(); at += 100) large[at] = static_cast<char>(at / 100);
    COleFile file;
    file.Create(m_path.c_str(), 0);
    for (int i = 0; i < 9000; ++i) {
        const std::string name = std::to_string(i * 7919 % 100'003);
        Put(file, std::u16string(name.begin(), name.end()).c_str(), name);
    }
    Put(file, u"large", large);
    file.Commit();
    Put(file, u"late", "one more");
    file.Commit();
    EXPECT_EQ(Get(file, u"7919"), "7919") << "after its source was replaced";
    EXPECT_EQ(Output("7z e -so " + m_path + " large"), large);
    EXPECT_EQ(Output("gsf cat " + m_path + " late"), "one more");
    const std::string listing = Output("7z t " + m_path);
    EXPECT_NE(listing.find("Everything is Ok"), std::string::npos) << listing;
    EXPECT_NE(listing.find("Files: 9002"), std::string::npos) << listing;
}

TEST_F(OleFile, AStreamWithSectorsOfAnotherIsRefused)
{
    {
        COleFile file;
        file.Create(m_path.c_str(), 0);
        for (const WCHAR* name : {u"One", u"Two"}) Put(file, name, m_large);
        file.Commit();
    }
    std::string bytes = ReadWhole(m_path);
    const std::size_t one = bytes.find(std::string("O\0n\0e", 5)),
                      two = bytes.find(std::string("T\0w\0o", 5));
    bytes.replace(two + 116, 4, bytes, one + 116, 4);
    WriteWhole(m_path, bytes);
    COleFile file;
    ASSERT_EQ(file.Open(m_path.c_str(), readWrite), 1);
    EXPECT_EQ(Get(file, u"One"), m_large);
    EXPECT_EQ(ThrownLine([&] { file.OpenStream(u"Two"); }), "[OLE File] Open stream failed, name=Two");
}
