#include "corekit/net/FtpClient.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/SystemTime.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/net/ScriptedFtp.h"
#include "tests/support/CaseRows.h"
#include "tests/support/Thrown.h"

#include <cstring>
#include <map>
#include <vector>

namespace {

using Session = ScriptedFtp::Session;

// A client whose limit is short, what it reported, and a script for the server.
class Ftp : public testing::Test {
protected:
    ~Ftp() override { client.Disconnect(); }

    void serve(std::function<void(Session&)> script)
    {
        server.emplace(std::move(script));
        client.SetTimeout(5000);
        client.SetLoggingCallback(
            [](void* to, int kind, const char* text) {
                static_cast<std::vector<std::string>*>(to)->push_back(std::to_string(kind) + " " + text);
            },
            &log);
    }
    bool connect() { return client.Connect("127.0.0.1", server->port(), "u", "p", 1) != 0; }
    // Serves a session that begins with a logon.
    void begin(std::function<void(Session&)> script)
    {
        serve([script = std::move(script)](Session& session) {
            session.logon();
            script(session);
        });
        ASSERT_TRUE(connect()) << error();
    }
    std::string error() const { return client.GetLastError().GetString(); }
    std::string lastMessage() const { return client.GetLastFtpMessage().GetString(); }
    bool logged(const std::string& line) const { return std::ranges::find(log, line) != log.end(); }

    static std::vector<std::string> texts(const CStringArray& lines)
    {
        std::vector<std::string> all;
        for (int i = 0; i < lines.GetSize(); ++i)
            all.emplace_back(lines[i].GetString(), lines[i].GetLength());
        return all;
    }
    using Texts = std::vector<std::string>;
    void converse(const char* conversation);

    std::optional<ScriptedFtp> server;
    CFtpClient client;
    std::vector<std::string> log;
};

// One turn of a conversation, a row of the table.
struct Turn {
    explicit Turn(CaseRow row)
        : verb(row.Word()), name(row.Word()), type(row.Word()), command(row.Word()), reply(row.Bytes()),
          data(row.Bytes()), end(row.Bytes()), result(row.Bytes()), error(row.Word()), message(row.Word())
    {
    }
    std::string verb, name, type, command, reply, data, end, result, error, message;

    void serve(Session& session) const
    {
        if (!type.empty()) session.passive(type);
        session.answer(command, reply + "\r\n");
        if (end.empty()) return;
        const bool isUpload = command.starts_with("STOR");
        if (const loopback::End connection = session.data(); isUpload) {
            EXPECT_EQ(connection.receive(100), data);
        } else {
            connection.send(data);
        }
        session.say(end + "\r\n");
    }
    // Whether it went well, and what came of it.
    int ask(CFtpClient& ftp, std::string& outcome) const
    {
        if (verb == "noop") return ftp.NoOp();
        if (verb == "cd") return ftp.ChangeDirectory(name.c_str());
        if (verb == "idle") return ftp.SetIdleTimeout(std::stoi(name));
        if (verb == "fast") return ftp.SetConnectionMode(ftpModeAvidFast);
        if (verb == "send")
            return ftp.UploadBuffer(name.c_str(), data.data(), static_cast<unsigned>(data.size()));
        if (verb == "list" || verb == "names") return list(ftp, outcome);
        constexpr std::string_view before = "some "; // a stream is read and written from its position on
        CMemoryStream stream(0, 4096);
        stream.Write(before.data(), before.size());
        if (verb == "get") {
            const int isGot = ftp.GetFileToStream(name.c_str(), stream);
            outcome.assign(static_cast<const char*>(stream.GetMemoryBufferPointer()), stream.GetSize());
            EXPECT_TRUE(outcome.starts_with(before));
            outcome.erase(0, before.size());
            return isGot;
        }
        EXPECT_EQ(verb, "put");
        stream.Write(data.data(), static_cast<DWORD>(data.size()));
        stream.SeekToPos(before.size());
        return ftp.UploadStream(name.c_str(), stream);
    }

private:
    int list(CFtpClient& ftp, std::string& outcome) const
    {
        CStringArray lines;
        lines.Add("stale");
        const int isListed = verb == "list" ? ftp.GetRawDirectoryListing(lines) : ftp.GetNameList(lines);
        for (int i = 0; i < lines.GetSize(); ++i) outcome += std::string(lines[i].GetString()) + '|';
        return isListed;
    }
};

void Ftp::converse(const char* conversation)
{
    const auto rows = CaseRows(TEST_DATA "/ftp_conversations.tsv", conversation);
    begin([rows](Session& session) {
        for (const CaseRow& row : rows) Turn(row).serve(session);
    });
    for (const CaseRow& row : rows) {
        const Turn turn(row);
        std::string outcome;
        const bool wentWell = turn.ask(client, outcome) != 0;
        EXPECT_EQ(wentWell, turn.error.empty()) << row.Line();
        EXPECT_EQ(wentWell ? outcome : error(), wentWell ? turn.result : turn.error) << row.Line();
        EXPECT_TRUE(turn.message.empty() || lastMessage() == turn.message) << row.Line() << lastMessage();
    }
}

TEST_F(Ftp, LogsOnAndReports)
{
    begin([](Session& session) { session.answer("NOOP", "200-a\r\nb\r\n200 c\r\n"); });
    EXPECT_TRUE(client.NoOp());
    const Texts expected{"0 Connecting to host \"127.0.0.1\"",
                         "0 220 ready",
                         "0 USER u",
                         "0 331 who",
                         "0 PASS p",
                         "0 230 in",
                         "0 NOOP",
                         "0 200-a",
                         "0 b",
                         "0 200 c"};
    EXPECT_EQ(log, expected);
    EXPECT_TRUE(client.IsConnected());
    client.Disconnect();
    EXPECT_FALSE(client.IsConnected());
    EXPECT_FALSE(client.NoOp());
    EXPECT_EQ(error(), "[FTP] Socket I/O failed");
}

TEST_F(Ftp, NoPasswordIsSentWhereNoneIsAskedFor)
{
    serve([](Session& session) {
        session.say("220-hello\r\n220 \r\n"); // a blank and nothing behind it ends a reply too
        session.answer("USER u", "230 in\r\n");
        session.answer("NOOP", "200 ok\r\n");
    });
    EXPECT_TRUE(connect());
    EXPECT_TRUE(client.NoOp());
}

TEST_F(Ftp, AConnectThatFailsSaysWhereAndKeepsTheServersWords)
{
    const auto line = [](const std::string& reply) { return reply == "-" ? "" : reply + "\r\n"; };
    for (CaseRow row : CaseRows(TEST_DATA "/ftp_replies.tsv", "connect")) {
        const std::string banner = row.Word(), toUser = row.Word(), toPass = row.Word();
        CFtpClient own;
        ScriptedFtp peer([&](Session& session) {
            session.say(line(banner));
            if (!toUser.empty()) session.answer("USER u", line(toUser));
            if (!toPass.empty()) session.answer("PASS p", line(toPass));
        });
        own.SetTimeout(5000);
        EXPECT_FALSE(own.Connect("127.0.0.1", peer.port(), "u", "p", 0));
        EXPECT_STREQ(own.GetLastError(), row.Word().c_str()) << row.Line();
        EXPECT_STREQ(own.GetLastFtpMessage(), row.Word().c_str()) << row.Line();
        EXPECT_FALSE(own.IsConnected());
    }
    serve([](Session& session) { session.say("421 full\r\n"); });
    EXPECT_FALSE(connect());
    const loopback::DeafPort gone;
    EXPECT_FALSE(client.Connect("127.0.0.1", gone.port(), "u", "p", 0));
    EXPECT_EQ(error(), "[FTP] Unable to connect to server");
    EXPECT_EQ(lastMessage(), "") << "no line of the server before";
}

TEST_F(Ftp, SimpleCommandsSucceedOrNameThemselves)
{
    const std::map<std::string, int (*)(CFtpClient&)> runs = {
        {"CWD a b", [](CFtpClient& c) { return c.ChangeDirectory("a b"); }},
        {"MKD d", [](CFtpClient& c) { return c.MakeDirectory("d"); }},
        {"RMD d", [](CFtpClient& c) { return c.RemoveDirectoryA("d"); }},
        {"DELE f", [](CFtpClient& c) { return c.DeleteFileA("f"); }},
        {"NOOP", [](CFtpClient& c) { return c.NoOp(); }},
        {"SITE FAST=4", [](CFtpClient& c) { return c.SetConnectionMode(ftpModeAvidFast); }},
    };
    auto commands = CaseRows(TEST_DATA "/ftp_replies.tsv", "command");
    begin([commands](Session& session) {
        for (CaseRow row : commands) {
            const std::string line = row.Word();
            session.answer(line, "550-no\r\n550 way\r\n");
            session.answer(line, "250 ok\r\n");
        }
    });
    for (CaseRow& row : commands) {
        const auto run = runs.at(row.Word());
        const std::string failure = row.Word();
        EXPECT_FALSE(run(client)) << row.Line();
        EXPECT_EQ(error(), failure);
        EXPECT_EQ(lastMessage(), "550 way");
        EXPECT_TRUE(logged("1 " + failure));
        CException* e = client.GetException();
        EXPECT_STREQ(GetExceptionMsg(e), (failure + "\n550 way").c_str());
        e->Delete();
        EXPECT_TRUE(run(client)) << row.Line();
        EXPECT_EQ(error(), failure); // stays until the next failure
    }
}

TEST_F(Ftp, ModesChangeUntilTheFastOneAndNeverBack)
{
    begin([](Session& session) { session.answer("SITE FAST=4", "200 fast\r\n"); });
    EXPECT_TRUE(client.SetConnectionMode(ftpModePassive));
    EXPECT_FALSE(client.SetConnectionMode(static_cast<eFtpMode>(-1)));
    EXPECT_FALSE(client.SetConnectionMode(static_cast<eFtpMode>(3)));
    EXPECT_TRUE(client.SetConnectionMode(ftpModeNormal));
    CMemoryStream stream(0, 4096);
    CStringArray lines;
    EXPECT_FALSE(client.GetFileToStream("f", stream));
    EXPECT_FALSE(client.UploadStream("f", stream));
    EXPECT_EQ(error(), "");
    EXPECT_FALSE(client.GetNameList(lines));
    EXPECT_EQ(error(), "[FTP] FTP subsystem detected an internal error.");
    EXPECT_TRUE(client.SetConnectionMode(ftpModeAvidFast));
    EXPECT_TRUE(client.SetConnectionMode(ftpModeAvidFast));
    EXPECT_FALSE(client.SetConnectionMode(ftpModePassive));
    EXPECT_EQ(error(), "[FTP] Once set, AvidFast mode cannot be deselected.");
}

TEST_F(Ftp, TheReplyToSiteIdleIsTakenForTheNextCommandsOwn) { converse("idle"); }

TEST_F(Ftp, PassiveListingsComeAsLines) { converse("lists"); }

TEST_F(Ftp, PassiveFilesComeAndGoByteForByte) { converse("files"); }

TEST_F(Ftp, AReplyToPasvLeadsToItsAddressOrFails)
{
    const loopback::DeafPort gone;
    std::vector<loopback::Listener> listeners(2); // a port whose halves differ
    const bool isEven = listeners[0].port() / 256 == listeners[0].port() % 256;
    const loopback::Listener& data = listeners[isEven];
    const auto halves = [](int port) {
        return std::to_string(port / 256) + "," + std::to_string(port % 256);
    };
    const std::pair<const char*, std::string> signs[] = {{"{port}", halves(data.port())},
                                                         {"{high}", std::to_string(data.port() / 256)},
                                                         {"{gone}", halves(gone.port())}};
    const auto replyOf = [&](std::string reply) {
        for (const auto& [sign, text] : signs)
            if (const auto at = reply.find(sign); at != reply.npos)
                reply.replace(at, std::strlen(sign), text);
        return reply + "\r\n";
    };
    const auto cases = CaseRows(TEST_DATA "/ftp_replies.tsv", "pasv");
    begin([&](Session& session) {
        for (CaseRow row : cases) {
            session.answer("TYPE A", "200 ok\r\n");
            session.answer("PASV", replyOf(row.Bytes()));
            if (!row.Word().empty()) continue;
            const loopback::End connection = data.accept();
            session.answer("LIST", "150 here\r\n226 done\r\n");
        }
    });
    CStringArray lines;
    for (CaseRow row : cases) {
        row.Word();
        const std::string failure = row.Word();
        EXPECT_EQ(client.GetRawDirectoryListing(lines), failure.empty()) << row.Line();
        if (!failure.empty()) {
            EXPECT_EQ(error(), failure) << row.Line();
        }
    }
    EXPECT_TRUE(
        logged("0 Establishing passive mode connection to 127.0.0.1 port " + std::to_string(data.port())));
    client.Disconnect();
    server.reset(); // it looks at what stands above
}

TEST_F(Ftp, DataMayBeKeptToTheControlHost)
{
    begin([](Session& session) {
        session.answer("TYPE A", "200 ok\r\n");
        const loopback::Listener data;
        session.answer("PASV", Session::passiveReply(data.port(), "198,51,100,7"));
        session.expect("NLST");
        session.say("150 here\r\n");
        data.accept().send("name\r\n");
        session.say("226 done\r\n");
    });
    client.SetDataToControlHost(1);
    CStringArray lines;
    EXPECT_TRUE(client.GetNameList(lines));
    EXPECT_EQ(texts(lines), Texts{"name"});
}

TEST_F(Ftp, FastModeSendsDataOnTheControlConnection) { converse("fast"); }

// --- peers that mean no good

TEST_F(Ftp, RepliesWithoutAnEndAreCutOff)
{
    for (const char* unit : {"x", "x\n", "\r\n", "220-more\r\n", "220 \n"}) {
        std::size_t sent = 0;
        CFtpClient own;
        ScriptedFtp peer([&](Session& session) {
            std::string block;
            while (block.size() < 10000) block += unit;
            while (sent < (8u << 20) && session.control().send(block)) sent += block.size();
        });
        own.SetTimeout(5000);
        EXPECT_FALSE(own.Connect("127.0.0.1", peer.port(), "u", "p", 0));
        EXPECT_STREQ(own.GetLastError(), "[FTP] Socket I/O failed");
        EXPECT_FALSE(own.IsConnected());
    }
}

TEST_F(Ftp, AListingThatIsTooLargeIsNoneThoughTheServerCallsItWhole)
{
    begin([](Session& session) {
        session.passive("A");
        session.answer("NLST", "150 here\r\n226 all of it\r\n");
        std::string lines;
        while (lines.size() < (5u << 20)) lines += "x\n"; // what a line costs beside its text counts too
        session.data().send(lines);
        session.answer("NOOP", "200 ok\r\n");
    });
    CStringArray lines;
    EXPECT_FALSE(client.GetNameList(lines));
    EXPECT_EQ(error(), "[FTP] LIST command failed.");
    EXPECT_TRUE(client.NoOp());
}

TEST_F(Ftp, SilenceCostsTheLimit)
{
    for (CaseRow row : CaseRows(TEST_DATA "/ftp_replies.tsv", "silence")) {
        const std::string toType = row.Bytes(), toList = row.Bytes();
        CFtpClient own;
        ScriptedFtp peer([&](Session& session) {
            session.logon();
            session.answer("TYPE A", toType);
            const loopback::Listener data;
            std::optional<loopback::End> connection;
            if (!toList.empty()) {
                session.answer("PASV", Session::passiveReply(data.port()));
                session.answer("LIST", toList);
                connection = data.accept();
            }
            session.awaitEnd();
        });
        own.SetTimeout(5000);
        ASSERT_TRUE(own.Connect("127.0.0.1", peer.port(), "u", "p", 0));
        own.SetTimeout(20);
        CStringArray lines;
        EXPECT_FALSE(own.GetRawDirectoryListing(lines)) << row.Line();
        EXPECT_STREQ(own.GetLastError(), "[FTP] Socket I/O failed") << row.Line();
        own.Disconnect();
    }
}

TEST_F(Ftp, TheLimitBeginsAnewWithEveryPieceOfAReply)
{
    serve([](Session& session) {
        for (const char piece : std::string("220-slow\r\n220 but there\r\n")) {
            session.say({&piece, 1});
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        session.answer("USER u", "230 in\r\n");
    });
    client.SetTimeout(150);
    EXPECT_TRUE(connect()) << error();
}

TEST_F(Ftp, TheTotalLimitEndsWhatKeepsMoving)
{
    struct Case {
        const char* name;
        std::function<void(Session&)> script;
        std::function<int(CFtpClient&)> call;
    };
    const auto drip = [](const loopback::End& to) {
        while (to.send("x")) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    };
    const auto list = [](CFtpClient& ftp) {
        CStringArray lines;
        return ftp.GetNameList(lines);
    };
    const std::string large(24 << 20, 'u');
    const Case cases[] = {
        {"a reply", [&](Session& s) { drip(s.control()); }, [](CFtpClient& ftp) { return ftp.NoOp(); }},
        {"a listing",
         [&](Session& s) {
             s.passive("A");
             s.answer("NLST", "150 here\r\n226 all of it\r\n");
             drip(s.data());
         },
         list},
        {"a file to here",
         [&](Session& s) {
             s.passive("I");
             s.answer("RETR f", "150 here\r\n");
             drip(s.data());
         },
         [](CFtpClient& ftp) {
             CMemoryStream stream(0, 4096);
             return ftp.GetFileToStream("f", stream);
         }},
        {"a file to there",
         [](Session& s) {
             s.passive("I");
             s.answer("STOR f", "150 go\r\n");
             const loopback::End data = s.data();
             while (!data.receive(1000).empty()) std::this_thread::sleep_for(std::chrono::milliseconds(2));
         },
         [&](CFtpClient& ftp) {
             return ftp.UploadBuffer("f", large.data(), static_cast<unsigned>(large.size()));
         }},
    };
    for (const Case& one : cases) {
        CFtpClient own;
        ScriptedFtp peer([&](Session& session) {
            session.logon();
            one.script(session);
        });
        own.SetTimeout(60'000);
        ASSERT_TRUE(own.Connect("127.0.0.1", peer.port(), "u", "p", 0));
        own.SetTotalTimeout(300);
        EXPECT_FALSE(one.call(own)) << one.name;
        EXPECT_TRUE(own.IsTimeOver()) << one.name;
        EXPECT_STREQ(own.GetLastError(), "[FTP] Socket I/O failed") << one.name;
        own.SetTotalTimeout(0);
        EXPECT_FALSE(own.NoOp()) << one.name << ": a late reply is nobody's";
        own.Disconnect();
    }
}

// What was sent lies in this side's buffers for longer than a reply may take, but it flows.
TEST_F(Ftp, AnUploadWaitsForItsReplyWhileTheServerTakesBytes)
{
    const std::string text(120'000, 'u');
    begin([&](Session& session) {
        session.answer("TYPE I", "200 ok\r\n");
        const loopback::Listener slow;
        slow.setReceiveBuffer(4096);
        session.answer("PASV", Session::passiveReply(slow.port()));
        session.answer("STOR f", "150 go\r\n");
        const loopback::End data = slow.accept();
        std::size_t taken = 0;
        for (std::size_t part = 1; part > 0; taken += part) {
            part = data.receive(3000).size();
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        EXPECT_EQ(taken, text.size());
        session.say("226 all of it\r\n");
    });
    client.SetTimeout(1000);
    EXPECT_TRUE(client.UploadBuffer("f", text.data(), static_cast<unsigned>(text.size()))) << error();
}

TEST_F(Ftp, ALimitOfNothingIsForRepliesNotForConnecting)
{
    serve([](Session& session) { session.awaitEnd(); });
    client.SetTimeout(0);
    EXPECT_FALSE(connect());
    EXPECT_EQ(error(), "[FTP] Socket I/O failed");
}

TEST_F(Ftp, ACutTransferIsAFailureAndTheNextCommandHasItsOwnReply)
{
    begin([](Session& session) {
        session.passive("I");
        session.answer("RETR a", "150 here\r\n");
        loopback::End half = session.data();
        half.send("half");
        half.reset();
        session.say("226 so the server thinks\r\n");
        session.passive("I");
        session.answer("STOR b", "150 go\r\n");
        session.say("426 cut\r\n"); // before the connection is: the client need not wait for it
        session.data().reset();
        session.answer("NOOP", "200 ok\r\n");
    });
    CMemoryStream stream(0, 4096);
    EXPECT_FALSE(client.GetFileToStream("a", stream));
    EXPECT_EQ(error(), "[FTP] File RETRIEVE command failed.");
    const std::string large(8 << 20, 'u');
    EXPECT_FALSE(client.UploadBuffer("b", large.data(), static_cast<unsigned>(large.size())));
    EXPECT_EQ(error(), "[FTP] Socket I/O failed");
    EXPECT_TRUE(client.NoOp());
}

TEST_F(Ftp, AnUploadThatFailsWaitsForNoReply)
{
    begin([](Session& session) {
        session.passive("I");
        session.answer("STOR b", "150 go\r\n");
        session.data().reset();
        session.answer("NOOP", "200 ok\r\n");
    });
    const std::string large(8 << 20, 'u');
    const DWORD start = timeGetTime();
    EXPECT_FALSE(client.UploadBuffer("b", large.data(), static_cast<unsigned>(large.size())));
    EXPECT_LT(timeGetTime() - start, 2500u);
    EXPECT_EQ(std::ranges::count(log, "1 [FTP] Socket I/O failed"), 1);
    EXPECT_TRUE(client.NoOp());
}

// A stream that has had enough.
class Full : public CMemoryStream {
public:
    Full() : CMemoryStream(0, 65536) {}

protected:
    void InternalRead(void*, DWORD) override { ThrowChainedException(nullptr, "enough"); }
    void InternalWrite(const void*, DWORD) override { ThrowChainedException(nullptr, "enough"); }
};

TEST_F(Ftp, AStreamThatFailsEndsTheTransferWithTheServerToo)
{
    begin([](Session& session) {
        session.passive("I");
        session.answer("RETR a", "150 here\r\n");
        session.data().send(std::string(100000, 'a'));
        session.say("426 left\r\n");
        session.answer("NOOP", "200 ok\r\n");
        session.answer("SITE FAST=4", "200 fast\r\n");
        session.answer("RETR b", "150 here\r\nbytes");
        session.awaitEnd();
    });
    const auto outcome = [&](const char* name) {
        Full full;
        return Thrown([&] { client.GetFileToStream(name, full); });
    };
    EXPECT_NE(outcome("a"), "nothing");
    EXPECT_TRUE(client.NoOp());
    ASSERT_TRUE(client.SetConnectionMode(ftpModeAvidFast));
    EXPECT_NE(outcome("b"), "nothing");
    EXPECT_FALSE(client.NoOp());
}

TEST_F(Ftp, ACopySharesTheConnectionAndTheMode)
{
    begin([](Session& session) {
        session.answer("SITE FAST=4", "200 fast\r\n");
        session.answer("NOOP", "200 ok\r\n");
    });
    ASSERT_TRUE(client.SetConnectionMode(ftpModeAvidFast));
    CFtpClient copy(client);
    EXPECT_EQ(copy.GetTimeout(), 5000u);
    copy.SetLoggingCallback(nullptr, nullptr);
    EXPECT_TRUE(copy.NoOp());
    EXPECT_TRUE(copy.SetConnectionMode(ftpModeAvidFast)); // without a word to the server
}

} // namespace
