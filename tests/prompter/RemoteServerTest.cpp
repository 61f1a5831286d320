#include "remote/RemoteServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

using namespace prompter;

namespace {

// Talks to the server on a thread of its own while this one answers.
std::string Talk(int port, const std::string& lines)
{
    std::string answers;
    std::atomic<bool> done = false;
    std::thread client([&] {
        XSocket socket;
        if (socket.ConnectTCPStream("127.0.0.1", port, WSA_FLAG_OVERLAPPED, 1)) {
            socket.WriteSocket(lines.data(), lines.size(), 5000);
            char block[256];
            DWORD received = 0;
            while (socket.ReadSocket(block, sizeof block, received, 400) && received > 0)
                answers.append(block, received);
        }
        done = true;
    });
    while (!done) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    client.join();
    return answers;
}

TEST(RemoteServer, AnswersEachLineOnTheThreadThatMadeIt)
{
    const auto here = std::this_thread::get_id();
    RemoteServer server([here](std::string_view line) {
        return std::this_thread::get_id() == here ? "ok " + std::string(line) : std::string("elsewhere");
    });
    const int port = server.Listen({});
    XSocket silent;
    ASSERT_TRUE(silent.ConnectTCPStream("127.0.0.1", port, WSA_FLAG_OVERLAPPED, 1));
    EXPECT_EQ(Talk(port, "start\r\nspeed 2\n"), "ok start\nok speed 2\n");
    EXPECT_EQ(Talk(port, "cut"), "") << "a line without its end is none";
    const std::string flood(5000, 'x');
    EXPECT_EQ(Talk(port, flood).substr(0, 6), "ok xxx") << "one answer, then the connection ends";
    server.Close(); // does not wait for the one that says nothing
    EXPECT_EQ(Talk(port, "start\n"), "");
}

TEST(RemoteServer, OtherMachinesNeedTheSharedWord)
{
    RemoteServer server([](std::string_view) { return std::string("done"); });
    EXPECT_THROW(server.Listen({"0.0.0.0", 0, ""}), std::invalid_argument);
    const int port = server.Listen({"127.0.0.1", 0, "sesame"});
    EXPECT_EQ(Talk(port, "word sesame\nstart\n"), "ok\ndone\n");
    const std::string refusal = "error: the first line is 'word' and the shared word\n";
    for (const char* lines : {"start\n", "word sesam\nstart\n", "word sesameX\nstart\n", "word \nstart\n"})
        EXPECT_EQ(Talk(port, lines), refusal) << lines;
}

} // namespace
