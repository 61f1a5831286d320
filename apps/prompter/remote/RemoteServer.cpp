#include "remote/RemoteServer.h"

#include "model/Remote.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"

#include <algorithm>
#include <stdexcept>

namespace prompter {
namespace {

constexpr int writeMilliseconds = 5000, turnMilliseconds = 200;
constexpr auto longestLine = std::chrono::minutes(10);   // from one whole line to the next
constexpr auto longestAnswer = std::chrono::seconds(10); // of a user interface that is busy
constexpr UINT requestsWait = WM_USER + 1;

// Takes the first line out of what has come in; false while there is none.
bool TakeLine(std::string& bytes, std::string& line)
{
    const std::size_t end = bytes.find('\n');
    if (end == bytes.npos) return false;
    line = bytes.substr(0, end);
    if (line.ends_with('\r')) line.pop_back();
    bytes.erase(0, end + 1);
    return true;
}

// Takes as long for a wrong word as for the right one.
bool IsSameWord(std::string_view a, std::string_view b)
{
    unsigned differences = a.size() != b.size();
    for (std::size_t i = 0; i < a.size(); ++i)
        differences |= static_cast<unsigned char>(a[i] ^ b[b.empty() ? 0 : i % b.size()]);
    return differences == 0;
}

} // namespace

RemoteServer::RemoteServer(Handler handler)
    : m_handler(std::move(handler)), m_window([this](const MSG& message) -> LRESULT {
          if (message.message == requestsWait) AnswerAll();
          return 0;
      })
{
}

RemoteServer::~RemoteServer() { Close(); }

int RemoteServer::Listen(const RemotePlace& place)
{
    if (!place.IsLoopback() && place.word.empty())
        throw std::invalid_argument("an address that other machines reach needs a shared word");
    m_word = place.word;
    m_isClosing = false;
    if (CException* failure = XSocketApi::InitSockets()) throw failure;
    XSocketApi::CreateAcceptThread();
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = XSocketApi::htons(static_cast<WORD>(place.port));
    address.sin_addr.s_addr = XSocketApi::inet_addr(place.address.c_str());
    if (!Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, WSA_FLAG_OVERLAPPED, 1)) throw GetLastErrorException();
    BindAndListen(reinterpret_cast<sockaddr*>(&address), mostConnections);
    GetLocalAddress(address);
    return XSocketApi::ntohs(address.sin_port);
}

void RemoteServer::Close()
{
    if (!IsOpen()) return;
    XListenSocket::Close(); // no connection arrives any more
    {
        const std::lock_guard lock(m_lock);
        m_isClosing = true;
        for (Request& request : m_requests) request.answer.set_value("error: the prompter ends");
        m_requests.clear();
    }
    for (Connection& connection : m_connections) connection.thread.join();
    m_connections.clear();
    XSocketApi::TerminateAcceptThread();
}

// On the accept thread.
void RemoteServer::OnAccept(XSocket* accepted)
{
    std::unique_ptr<XSocket> socket(accepted);
    const std::lock_guard lock(m_lock);
    DropDone();
    if (m_isClosing || m_connections.size() >= mostConnections) return; // closes it
    Connection& connection = m_connections.emplace_back();
    connection.socket = std::move(socket);
    connection.thread = std::thread([this, &connection] { Serve(connection); });
}

void RemoteServer::DropDone()
{
    for (auto at = m_connections.begin(); at != m_connections.end();) {
        if (at->isDone) {
            at->thread.join();
            at = m_connections.erase(at);
        } else {
            ++at;
        }
    }
}

// Waits in short turns, so that the server can close meanwhile.
bool RemoteServer::Read(XSocket& socket, char* block, DWORD size, DWORD& received, Clock::time_point end)
{
    while (Clock::now() < end && !m_isClosing) {
        if (socket.ReadSocket(block, size, received, turnMilliseconds)) return received > 0;
        if (GetLastError() != ERROR_TIMEOUT) return false;
    }
    return false;
}

void RemoteServer::Serve(Connection& connection)
{
    std::string bytes, line;
    bool isTrusted = m_word.empty(), goesOn = true;
    auto end = Clock::now() + longestLine;
    char block[1024];
    for (DWORD received = 0; goesOn && Read(*connection.socket, block, sizeof block, received, end);) {
        bytes.append(block, received);
        while (goesOn && TakeLine(bytes, line)) {
            goesOn = ServeLine(connection, line, isTrusted);
            end = Clock::now() + longestLine;
        }
        if (goesOn && bytes.size() > longestRemoteLine)
            goesOn = ServeLine(connection, bytes, isTrusted) && false;
    }
    const std::lock_guard lock(m_lock);
    connection.socket->Close();
    connection.isDone = true;
}

bool RemoteServer::ServeLine(Connection& connection, const std::string& line, bool& isTrusted)
{
    constexpr std::string_view wordCommand = "word ";
    std::string answer;
    bool goesOn = true;
    if (!isTrusted) {
        isTrusted = line.starts_with(wordCommand) &&
                    IsSameWord(std::string_view(line).substr(wordCommand.size()), m_word);
        answer = isTrusted ? "ok" : "error: the first line is 'word' and the shared word";
        goesOn = isTrusted;
    } else {
        answer = Ask(line);
    }
    answer += '\n';
    return connection.socket->WriteSocket(answer.data(), answer.size(), writeMilliseconds) && goesOn;
}

std::string RemoteServer::Ask(std::string line)
{
    std::future<std::string> answer;
    {
        const std::lock_guard lock(m_lock);
        if (m_isClosing) return "error: the prompter ends";
        Request& request = m_requests.emplace_back(Request{std::move(line), {}});
        answer = request.answer.get_future();
    }
    PostMessageA(m_window.GetSafeHwnd(), requestsWait, 0, 0);
    if (answer.wait_for(longestAnswer) != std::future_status::ready) return "error: the prompter is busy";
    return answer.get();
}

void RemoteServer::AnswerAll()
{
    for (;;) {
        Request request;
        {
            const std::lock_guard lock(m_lock);
            if (m_requests.empty()) return;
            request = std::move(m_requests.front());
            m_requests.pop_front();
        }
        request.answer.set_value(m_handler(request.line));
    }
}

} // namespace prompter
