// One client of the echo server: reads, writes what it read, and reads again. One transfer is under way at
// any time, so its functions never meet.
#pragma once

#include <corekit/CoreKit.h>

#include <memory>

class EchoServer;

class Connection : public CompletionRecord {
public:
    // The socket belongs to the server's port.
    Connection(EchoServer& server, std::unique_ptr<XSocket> socket);

    // Begins; from here on the connection deletes itself when the client or the server ends it.
    void Start();
    // Ends the transfer under way. The server calls it while it holds the connection.
    void Cancel();

private:
    enum class Step { reading, writing };

    static void Complete(CompletionRecord* record, DWORD moved);
    static void Fail(CompletionRecord* record, DWORD error);
    void Begin(Step step, DWORD bytes);

    EchoServer& m_server;
    const std::unique_ptr<XSocket> m_socket;
    Step m_step = Step::reading;
    char m_bytes[4096];
};
