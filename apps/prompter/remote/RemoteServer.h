// Remote control over TCP: lines of Remote.h, each answered by one line.
//
// Connections are served by a thread each; every line is carried out on the thread that made the server, by
// the function given to it. A server that other machines can reach asks for a shared word first: the line
// "word WORD" before any other. A connection that sends no whole line for ten minutes is closed.
#pragma once

#include "corekit/net/XListenSocket.h"
#include "corekit/platform/Messages.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <future>
#include <list>
#include <mutex>
#include <string>
#include <thread>

namespace prompter {

struct RemotePlace {
    std::string address = "127.0.0.1"; // of this machine, in digits
    int port = 0;                      // 0: any free one
    std::string word;                  // empty: none is asked for

    bool IsLoopback() const { return address.starts_with("127."); }
    friend bool operator==(const RemotePlace&, const RemotePlace&) = default;
};

class RemoteServer : private XListenSocket {
public:
    // The answer to a line, without its end; called on the thread that made the server.
    using Handler = std::function<std::string(std::string_view line)>;

    explicit RemoteServer(Handler handler);
    ~RemoteServer() override;

    // The port. Throws CChainedException if it cannot be had, and std::invalid_argument for an address that
    // other machines reach when there is no word.
    int Listen(const RemotePlace& place);
    void Close(); // ends all connections

    static constexpr int mostConnections = 16;

private:
    using Clock = std::chrono::steady_clock;
    struct Request {
        std::string line;
        std::promise<std::string> answer;
    };
    struct Connection {
        std::unique_ptr<XSocket> socket;
        std::thread thread;
        bool isDone = false;
    };

    void OnAccept(XSocket* socket) override;
    void Serve(Connection& connection);
    bool Read(XSocket& socket, char* block, DWORD size, DWORD& received, Clock::time_point end);
    bool ServeLine(Connection& connection, const std::string& line, bool& isTrusted);
    std::string Ask(std::string line);
    void AnswerAll();
    void DropDone();

    Handler m_handler;
    MessageWindow m_window; // its messages say that requests wait
    std::string m_word;
    std::atomic<bool> m_isClosing = false;
    std::mutex m_lock; // of what stands below
    std::deque<Request> m_requests;
    std::list<Connection> m_connections;
};

} // namespace prompter
