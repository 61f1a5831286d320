#include "Connection.h"

#include "EchoServer.h"

Connection::Connection(EchoServer& server, std::unique_ptr<XSocket> socket)
    : m_server(server), m_socket(std::move(socket))
{
    OnComplete = Complete;
    OnError = Fail;
}

void Connection::Start() { Begin(Step::reading, sizeof m_bytes); }

void Connection::Cancel() { CancelIoEx(*m_socket, nullptr); }

void Connection::Complete(CompletionRecord* record, DWORD moved)
{
    auto& self = *static_cast<Connection*>(record);
    if (self.m_step == Step::writing) {
        self.m_server.CountBytes(moved);
        self.Start();
    } else if (moved > 0) {
        self.Begin(Step::writing, moved);
    } else {
        self.m_server.Forget(self); // the client has closed
    }
}

void Connection::Fail(CompletionRecord* record, DWORD)
{
    auto& self = *static_cast<Connection*>(record);
    self.m_server.Forget(self);
}

// Once a transfer has begun, another worker may already be at the next step.
void Connection::Begin(Step step, DWORD bytes)
{
    if (m_server.IsStopping()) return m_server.Forget(*this);
    static_cast<OVERLAPPED&>(*this) = {};
    m_step = step;
    const BOOL done = step == Step::reading ? ReadFile(*m_socket, m_bytes, bytes, nullptr, this)
                                            : WriteFile(*m_socket, m_bytes, bytes, nullptr, this);
    if (!done && GetLastError() != ERROR_IO_PENDING) m_server.Forget(*this);
}
