// The FTP client against servers that are not ours.
#include "tests/net/FtpServers.h"
#include "corekit/foundation/ChainedException.h"
#include "corekit/net/FtpClient.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/support/Thrown.h"

#include <algorithm>
#include <memory>
#include <random>
#include <set>

namespace {

// As many bytes as one likes: read, they are made; written, they are compared.
class Pattern : public CStream {
public:
    explicit Pattern(DWORD size) : m_size(size) {}

    bool isSame() const { return !m_differs && m_position == m_size; }
    void SeekToPos(DWORD position) override { m_position = position; }
    DWORD GetSize() override { return m_size; }
    void Flush() override {}
    void Skip(int count) override { m_position += static_cast<DWORD>(count); }
    DWORD GetCurrentPos() override { return m_position; }
    void SetEndOfStream() override {}

protected:
    void InternalRead(void* buffer, DWORD count) override
    {
        pass(count, [to = static_cast<char*>(buffer)](const char* bytes, std::size_t size) mutable {
            to = std::copy_n(bytes, size, to);
        });
    }
    void InternalWrite(const void* buffer, DWORD count) override
    {
        pass(count,
             [this, from = static_cast<const char*>(buffer)](const char* bytes, std::size_t size) mutable {
                 m_differs |= !std::equal(bytes, bytes + size, from);
                 from += size;
             });
    }

private:
    template <class Use>
    void pass(DWORD count, Use use)
    {
        const std::string& all = table();
        while (count > 0) {
            const std::size_t at = m_position % all.size();
            const auto size = static_cast<DWORD>(std::min<std::size_t>(count, all.size() - at));
            use(all.data() + at, size);
            m_position += size;
            count -= size;
        }
    }
    static const std::string& table()
    {
        static const std::string bytes = [] {
            std::string all(1048573, 0); // no power of two, so that no block equals another
            std::mt19937 random(7);
            std::ranges::generate(all, [&] { return static_cast<char>(random()); });
            return all;
        }();
        return bytes;
    }

    DWORD m_size;
    DWORD m_position = 0;
    bool m_differs = false;
};

enum class Make { vsftpd, pyftpd };

class FtpServers : public testing::TestWithParam<Make> {
protected:
    void SetUp() override
    {
        if (GetParam() == Make::vsftpd)
            server = std::make_unique<Vsftpd>();
        else
            server = std::make_unique<Pyftpd>();
        ASSERT_TRUE(
            client.Connect("localhost", server->port(), server->user.c_str(), server->password.c_str(), 1))
            << error();
        ASSERT_TRUE(client.ChangeDirectory(server->start.c_str())) << error();
    }
    void TearDown() override { client.Disconnect(); }

    std::string error()
    {
        return client.GetLastError().GetString() + std::string(" ") + client.GetLastFtpMessage().GetString();
    }
    void goesThereAndBack(const char* name, DWORD size)
    {
        Pattern source(size), target(size);
        EXPECT_TRUE(client.UploadStream(name, source)) << error();
        EXPECT_EQ(std::filesystem::file_size(server->folder() + "/" + name), size);
        EXPECT_TRUE(client.GetFileToStream(name, target)) << error();
        EXPECT_TRUE(target.isSame()) << name << " of " << size << " bytes";
    }
    std::set<std::string> names()
    {
        CStringArray lines;
        EXPECT_TRUE(client.GetNameList(lines)) << error();
        std::set<std::string> all;
        for (int i = 0; i < lines.GetSize(); ++i) all.insert(lines[i].GetString());
        return all;
    }

    std::unique_ptr<FtpServer> server;
    CFtpClient client;
};

TEST_P(FtpServers, FilesArriveBitForBit)
{
    for (const DWORD size : {0u, 1u, 4096u, 65536u, 65537u, 3000000u}) goesThereAndBack("file", size);
    goesThereAndBack("name with blanks \xC3\xA9.txt", 1000);
}

TEST_P(FtpServers, AFileOf200MiBArrivesBitForBit) { goesThereAndBack("large", 200u << 20); }

TEST_P(FtpServers, FoldersAndListings)
{
    EXPECT_EQ(names(), std::set<std::string>{});
    ASSERT_TRUE(client.MakeDirectory("below")) << error();
    ASSERT_TRUE(client.ChangeDirectory("below")) << error();
    std::set<std::string> expected;
    for (int i = 0; i < 60; ++i) {
        const std::string name = "script " + std::to_string(i) + ".txt";
        ASSERT_TRUE(client.UploadBuffer(name.c_str(), name.data(), static_cast<unsigned>(name.size())))
            << error();
        expected.insert(name);
    }
    EXPECT_EQ(names(), expected);
    CStringArray lines;
    ASSERT_TRUE(client.GetRawDirectoryListing(lines)) << error();
    EXPECT_EQ(lines.GetSize(), 60);
    for (const std::string& name : expected) ASSERT_TRUE(client.DeleteFileA(name.c_str())) << error();
    EXPECT_EQ(names(), std::set<std::string>{});
    EXPECT_TRUE(client.ChangeDirectory("..")) << error();
    EXPECT_TRUE(client.RemoveDirectoryA("below")) << error();
    EXPECT_FALSE(std::filesystem::exists(server->folder() + "/below"));
    EXPECT_TRUE(client.NoOp()) << error();
}

TEST_P(FtpServers, RefusalsAreReportedAndTheSessionGoesOn)
{
    CMemoryStream stream(0, 4096);
    EXPECT_FALSE(client.GetFileToStream("missing", stream));
    EXPECT_STREQ(client.GetLastError(), "[FTP] File RETRIEVE command failed.");
    EXPECT_STREQ(client.GetLastFtpMessage().Left(3), "550");
    EXPECT_FALSE(client.UploadBuffer("no/such/folder/x", "x", 1));
    EXPECT_FALSE(client.ChangeDirectory("missing"));
    EXPECT_FALSE(client.RemoveDirectoryA("missing"));
    EXPECT_FALSE(client.DeleteFileA("missing"));
    EXPECT_FALSE(client.SetConnectionMode(ftpModeAvidFast));
    goesThereAndBack("after", 100);
}

TEST_P(FtpServers, ATransferBrokenOffLeavesTheSessionUsable)
{
    // Takes a part and throws.
    class Impatient : public CMemoryStream {
    public:
        Impatient() : CMemoryStream(0, 1 << 20)
        {
            CMemoryStream::InternalWrite("0123456789", 10);
            CMemoryStream::SeekToPos(0);
        }

    protected:
        void InternalRead(void*, DWORD) override { ThrowChainedException(nullptr, "enough"); }
        void InternalWrite(const void*, DWORD) override { ThrowChainedException(nullptr, "enough"); }
    } impatient;
    Pattern large(20 << 20);
    ASSERT_TRUE(client.UploadStream("large", large)) << error();
    EXPECT_NE(Thrown([&] { client.GetFileToStream("large", impatient); }), "nothing");
    EXPECT_NE(Thrown([&] { client.UploadStream("part", impatient); }), "nothing");
    goesThereAndBack("after", 100000);
}

INSTANTIATE_TEST_SUITE_P(Makes, FtpServers, testing::Values(Make::vsftpd, Make::pyftpd),
                         [](const auto& made) {
                             return made.param == Make::vsftpd ? "vsftpd" : "pyftpdlib";
                         });

} // namespace
