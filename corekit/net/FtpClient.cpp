// The control connection of CFtpClient. FtpTransfers.cpp has the rest.
#include "corekit/net/FtpClient.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/Module.h"
#include "corekit/net/FtpReader.h"
#include "corekit/platform/SystemTime.h"
#include "corekit/resources/Messages.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CFtpClient, CObject)

namespace {
using corekit::detail::FtpReader;

constexpr DWORD timedWrite = 16 << 10;       // bytes
constexpr DWORD replyLimit = 10 * 60 * 1000; // milliseconds that a reply may take, however it comes

std::string_view view(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

// What a line end would make of a name is a command of its own.
bool isOneLine(std::string_view text) { return text.find_first_of("\r\n") == text.npos; }

CString lastOf(const CStringArray& lines) { return lines.GetAt(lines.GetUpperBound()); }
} // namespace

CFtpClient::CFtpClient() : m_received(std::make_unique<FtpReader>()) {}
CFtpClient::CFtpClient(const CFtpClient& other) : CFtpClient() { *this = other; }
CFtpClient::~CFtpClient() = default;

CFtpClient& CFtpClient::operator=(const CFtpClient& other)
{
    m_socket = other.m_socket;
    m_mode = other.m_mode;
    m_callback = other.m_callback;
    m_timeout = other.m_timeout;
    m_total = other.m_total;
    m_totalStart = other.m_totalStart;
    m_dataToControlHost = other.m_dataToControlHost;
    return *this;
}

void CFtpClient::SetLoggingCallback(LoggingCallback callback, void* context)
{
    m_callback = callback;
    m_context = context;
}

void CFtpClient::LogString(int kind, const char* text)
{
    if (m_callback) m_callback(m_context, kind, text);
}

void CFtpClient::SetLastError(UINT id)
{
    m_lastError = LoadResourceString(id);
    m_lastMessage.Empty();
    LogString(1, m_lastError);
}

void CFtpClient::SetLastError(UINT id, const CStringArray& lines)
{
    m_lastError = LoadResourceString(id);
    m_lastMessage = lastOf(lines);
    LogString(1, m_lastError);
}

int CFtpClient::Failed(UINT id)
{
    SetLastError(id);
    return 0;
}

int CFtpClient::Failed(UINT id, const CStringArray& lines)
{
    SetLastError(id, lines);
    return 0;
}

CException* CFtpClient::GetException() const
{
    CException* const inner =
        m_lastMessage.IsEmpty() ? nullptr : new CChainedException(m_lastMessage, nullptr);
    return new CChainedException(m_lastError, inner);
}

// --- bytes and lines

void CFtpClient::SetTotalTimeout(unsigned long milliseconds)
{
    m_total = static_cast<DWORD>(milliseconds);
    m_totalStart = timeGetTime();
}

DWORD CFtpClient::TimeLeft() const
{
    if (m_total == 0) return INFINITE;
    return m_total - std::min(m_total, timeGetTime() - m_totalStart);
}

// Under a total limit the time is looked at between small pieces, as a socket's limit begins anew with each
// move.
int CFtpClient::WriteDataToSocket(XSocket& socket, const void* data, DWORD size)
{
    const DWORD most = m_total ? timedWrite : size;
    for (auto* next = static_cast<const char*>(data); size > 0;) {
        const DWORD part = std::min(size, most);
        if (!socket.WriteSocket(next, part, static_cast<int>(Within(m_timeout))) || IsTimeOver())
            return IsTimeOver() ? BreakOff() : Failed(message::ftpSocketFailed);
        next += part;
        size -= part;
    }
    return 1;
}

int CFtpClient::SendCommand(const char* command, const char* argument)
{
    if (!isOneLine(command) || (argument && !isOneLine(argument))) return Failed(message::ftpLineEndRefused);
    CString line(command);
    if (argument) {
        line += ' ';
        line += argument;
    }
    if (m_socket) DropLateReply();
    LogString(0, line);
    line += "\r\n";
    if (!m_socket) return Failed(message::ftpSocketFailed);
    return WriteDataToSocket(*m_socket, line.GetString(), static_cast<DWORD>(line.GetLength()));
}

int CFtpClient::GetMoreData(DWORD size, DWORD limit)
{
    DWORD received = 0;
    const bool isRead = m_socket && m_socket->ReadSocket(m_received->Room(size), size, received,
                                                         static_cast<int>(Within(limit)));
    if (IsTimeOver()) return BreakOff();
    if (!isRead) return Failed(message::ftpSocketFailed);
    if (received == 0) return Failed(message::ftpServerClosed);
    m_received->Added(received);
    return 1;
}

int CFtpClient::ReadOneLine(CString& line, DWORD start)
{
    while (!m_received->TakeLine(line)) {
        if (m_received->Bytes().size() > FtpReader::mostReply || timeGetTime() - start > replyLimit)
            return BreakOff();
        if (!GetMoreData(controlRead, m_timeout)) return 0;
    }
    return 1;
}

int CFtpClient::GetServerMessage(CStringArray& lines)
{
    lines.RemoveAll();
    const DWORD start = timeGetTime();
    for (std::size_t taken = 0; taken <= FtpReader::mostReply;) {
        CString line;
        if (!ReadOneLine(line, start)) return 0;
        LogString(0, line);
        lines.Add(line);
        if (corekit::detail::isLastLineOfReply(view(line))) return 1;
        taken += static_cast<std::size_t>(line.GetLength()) + corekit::detail::FtpListingSplitter::lineCost;
    }
    return BreakOff();
}

// What the server sends has no end, or comes too late: nothing of it is of use any more.
int CFtpClient::BreakOff()
{
    *m_received = {};
    if (m_socket) m_socket->Close();
    return Failed(message::ftpSocketFailed);
}

int CFtpClient::GetResultClass(const CStringArray& lines) { return lastOf(lines).GetAt(0) - '0'; }

// A transfer has failed and its last reply is still to come. Without it every later reply would be taken for
// the answer to another command, so a server that does not send it is left.
void CFtpClient::ReadOwedReply()
{
    const CString error = m_lastError, message = m_lastMessage;
    CStringArray lines;
    if (!GetServerMessage(lines) && m_socket) m_socket->Close();
    m_lastError = error;
    m_lastMessage = message;
}

// After an upload that failed the reply to it may come yet. Nobody waits for it, but if it has come before
// the next command is sent it is not taken for the answer to that one.
void CFtpClient::DropLateReply()
{
    for (CString line; m_expectsLateReply;) {
        DWORD received = 0;
        if (m_received->TakeLine(line)) {
            LogString(0, line);
            m_expectsLateReply = !corekit::detail::isLastLineOfReply(view(line));
        } else if (m_socket->ReadSocket(m_received->Room(controlRead), controlRead, received, 0) &&
                   received > 0 && m_received->Bytes().size() <= FtpReader::mostReply) {
            m_received->Added(received);
        } else {
            return;
        }
    }
}

int CFtpClient::Command(const char* command, const char* argument, UINT errorId)
{
    CStringArray lines;
    if (!SendCommand(command, argument) || !GetServerMessage(lines)) return 0;
    return GetResultClass(lines) == 2 ? 1 : Failed(errorId, lines);
}

// --- the connection

int CFtpClient::Connect(const char* host, int port, const char* user, const char* password, int noDelay)
{
    if (CException* e = XSocketApi::InitSockets()) {
        m_lastError = GetExceptionMsg(e);
        m_lastMessage.Empty();
        e->Delete();
        return 0;
    }
    CString text;
    AfxFormatString1(text, message::ftpConnecting, host);
    LogString(0, text);
    m_socket = new XSocket;
    m_expectsLateReply = false; // of a connection before
    m_socket->SetConnectTimeout(ConnectLimit());
    if (!m_socket->ConnectTCPStream(host, port, WSA_FLAG_OVERLAPPED, noDelay)) {
        m_lastError = LoadResourceString(message::ftpConnectFailed);
        m_lastMessage.Empty();
    } else if (WaitForBanner() && LogonToSite(user, password)) {
        return 1;
    }
    Disconnect();
    return 0;
}

void CFtpClient::Disconnect()
{
    delete m_socket;
    m_socket = nullptr;
    m_expectsLateReply = false;
}

int CFtpClient::WaitForBanner()
{
    CStringArray lines;
    if (!GetServerMessage(lines)) return 0;
    return GetResultClass(lines) == 2 ? 1 : Failed(message::ftpGreetingRefused, lines);
}

int CFtpClient::LogonToSite(const char* user, const char* password)
{
    CStringArray lines;
    if (!SendCommand("USER", user) || !GetServerMessage(lines)) return 0;
    if (GetResultClass(lines) == 2) return 1;
    if (GetResultClass(lines) != 3) return Failed(message::ftpLoginFailed, lines);
    return Command("PASS", password, message::ftpLoginFailed);
}

int CFtpClient::SetIdleTimeout(int value)
{
    CString command;
    command.Format("SITE IDLE=%d", value);
    return SendCommand(command, nullptr);
}

int CFtpClient::SetConnectionMode(eFtpMode mode)
{
    if (mode == m_mode) return 1;
    if (m_mode == ftpModeAvidFast) return Failed(message::ftpAvidFastStays);
    if (mode < ftpModeNormal || mode > ftpModeAvidFast) return 0;
    if (mode == ftpModeAvidFast && !Command("SITE FAST=4", nullptr, message::ftpAvidFastFailed)) return 0;
    m_mode = mode;
    return 1;
}

int CFtpClient::ChangeDirectory(const char* path)
{
    return Command("CWD", path, message::ftpChangeFolderFailed);
}
int CFtpClient::MakeDirectory(const char* path) { return Command("MKD", path, message::ftpMakeFolderFailed); }
int CFtpClient::RemoveDirectoryA(const char* path)
{
    return Command("RMD", path, message::ftpRemoveFolderFailed);
}
int CFtpClient::DeleteFileA(const char* name) { return Command("DELE", name, message::ftpDeleteFailed); }
int CFtpClient::NoOp() { return Command("NOOP", nullptr, message::ftpNoOpFailed); }
int CFtpClient::set_transfer_mode(bool binary)
{
    return Command("TYPE", binary ? "I" : "A", message::ftpTypeFailed);
}
