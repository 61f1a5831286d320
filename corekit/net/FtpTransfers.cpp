// Listings and files of CFtpClient.
#include "corekit/foundation/ChainedException.h"
#include "corekit/net/FtpClient.h"

#include "corekit/net/FtpReader.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/MulDiv.h"
#include "corekit/platform/Sockets.h"
#include "corekit/platform/SystemTime.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/MemoryStream.h"

#include <algorithm>
#include <climits>
#include <string_view>
#include <utility>

namespace {
using namespace corekit::detail;

constexpr DWORD blockSize = 256 << 10; // bytes of file data that are moved at once
constexpr DWORD fileReadLimit = 20000;

std::unique_ptr<char[]> newBlock(DWORD size = blockSize)
{
    return std::make_unique_for_overwrite<char[]>(size);
}

CString lastOf(const CStringArray& lines) { return lines.GetAt(lines.GetUpperBound()); }

// How much came and how fast, since the stream was at `position` and the clock at `start`.
CString summary(const char* what, CStream& stream, DWORD position, DWORD start)
{
    const int ms = static_cast<int>(timeGetTime() - start);
    const int bytes = static_cast<int>(stream.GetCurrentPos() - position);
    CString text;
    text.Format("%s, received %d bytes in %d.%02d seconds (%d bytes/second)", what, bytes, ms / 1000,
                ms % 1000 / 10, MulDiv(bytes, 1000, ms));
    return text;
}

// The server's system may hold megabytes that the server has yet to take: its reply may come as much later as
// they need at 64 kB a second.
DWORD limitAfterUpload(DWORD limit, DWORD sent)
{
    constexpr DWORD mostHeld = 8 << 20, bytesPerMillisecond = 64;
    const DWORD more = std::min(sent, mostHeld) / bytesPerMillisecond;
    return limit > INFINITE - more ? INFINITE : limit + more;
}

// The server is to learn that what it has is not all.
void cutOff(XSocket& socket)
{
    const WORD atOnce[2] = {1, 0};
    constexpr int socketLevel = 0xFFFF, lingerOption = 0x80;
    XSocketApi::setsockopt(socket, socketLevel, lingerOption, reinterpret_cast<const char*>(atOnce),
                           sizeof atOnce);
}
} // namespace

// --- passive data connections

CFtpClient::Socket CFtpClient::SetupPassiveConnection()
{
    CStringArray lines;
    if (!SendCommand("PASV", nullptr) || !GetServerMessage(lines)) return nullptr;
    const CString line = lastOf(lines);
    if (line.Left(4) != "227 ") {
        SetLastError(message::ftpPassiveFailed, lines);
        return nullptr;
    }
    FtpPassiveAddress told = passiveAddressIn({line.GetString(), static_cast<std::size_t>(line.GetLength())});
    sockaddr_in address{};
    if (m_dataToControlHost && m_socket) {
        int length = sizeof address;
        XSocketApi::getpeername(*m_socket, reinterpret_cast<sockaddr*>(&address), &length);
        const auto* bytes = reinterpret_cast<const unsigned char*>(&address.sin_addr);
        std::copy_n(bytes, 4, told.host);
    }
    std::copy_n(told.host, 4, reinterpret_cast<unsigned char*>(&address.sin_addr));
    address.sin_family = AF_INET;
    address.sin_port = XSocketApi::htons(static_cast<WORD>(told.port));
    CString text;
    text.Format(message::ftpConnectingPassive, told.host[0], told.host[1], told.host[2], told.host[3],
                told.port);
    LogString(0, text);
    auto socket = std::make_unique<XSocket>();
    socket->SetConnectTimeout(ConnectLimit());
    if (socket->ConnectTCPStream(address, WSA_FLAG_OVERLAPPED, 0)) return socket;
    SetLastError(message::ftpPassiveConnectFailed);
    return nullptr;
}

// A read that fails ends the listing without a report and drops the line that it cuts: the server's second
// reply tells the outcome. 0 for a listing that is too large, of which the server may know nothing.
int CFtpClient::ReadSocketToArray(XSocket& socket, CStringArray& lines)
{
    constexpr DWORD size = 0x4000;
    const auto block = newBlock(size);
    FtpListingSplitter splitter(lines);
    DWORD received = 0;
    while (socket.ReadSocket(block.get(), size, received, static_cast<int>(Within(m_timeout)))) {
        if (received == 0) {
            splitter.End();
            break;
        }
        const bool isTooLarge = !splitter.Add({block.get(), received});
        if (isTooLarge || IsTimeOver()) {
            cutOff(socket);
            return !isTooLarge;
        }
    }
    return 1;
}

int CFtpClient::ReadSocketToStream(XSocket& socket, CStream& stream)
{
    const DWORD position = stream.GetCurrentPos(), start = timeGetTime();
    const auto block = newBlock();
    for (DWORD received = 0;;) {
        if (!socket.ReadSocket(block.get(), blockSize, received, static_cast<int>(Within(fileReadLimit))))
            return 0;
        if (received == 0) break;
        if (IsTimeOver()) return cutOff(socket), 0;
        stream.Write(block.get(), received);
    }
    LogString(0, summary("Connection closed", stream, position, start));
    return 1;
}

int CFtpClient::WriteStreamToSocket(XSocket& socket, CStream& stream, DWORD& sent)
{
    const DWORD total = stream.GetSize();
    const auto block = newBlock();
    for (DWORD position = stream.GetCurrentPos(); position < total;) {
        const DWORD part = std::min(total - position, blockSize);
        stream.Read(block.get(), part);
        if (!WriteDataToSocket(socket, block.get(), part)) return 0;
        position += part;
        sent += part;
    }
    return 1;
}

// What was written may lie in this system's buffers for minutes. As long as the server takes of it, nothing
// is late; a server that speaks before has a reason.
int CFtpClient::AwaitTaken(XSocket& socket)
{
    if (!m_socket || !m_received->Bytes().empty()) return 1;
    const DWORD limit = Within(ConnectLimit());
    if (sockets::AwaitTaken(socket, *m_socket, limit, TimeLeft()) || ::GetLastError() != ERROR_TIMEOUT)
        return 1;
    return IsTimeOver() ? BreakOff() : Failed(message::ftpSocketFailed);
}

// --- listings

int CFtpClient::GetRawDirectoryListing(CStringArray& lines) { return GetDirList("LIST", lines); }
int CFtpClient::GetNameList(CStringArray& lines) { return GetDirList("NLST", lines); }

int CFtpClient::GetDirList(const char* command, CStringArray& lines)
{
    lines.RemoveAll();
    switch (m_mode) {
    case ftpModeNormal:
        return GetDirList_Normal();
    case ftpModePassive:
        return GetDirList_Passive(command, lines);
    case ftpModeAvidFast:
        return GetDirList_AvidFast(command, lines);
    }
    return Failed(message::ftpInternalError);
}

int CFtpClient::GetDirList_Normal() { return Failed(message::ftpInternalError); }

int CFtpClient::GetDirList_Passive(const char* command, CStringArray& lines)
{
    if (!set_transfer_mode(false)) return 0;
    Socket data = SetupPassiveConnection();
    CStringArray reply;
    if (!data || !SendCommand(command, nullptr) || !GetServerMessage(reply)) return 0;
    if (GetResultClass(reply) != 1) // a folder without files has no listing
        return lastOf(reply).Left(3) == "450" ? 1 : Failed(message::ftpListFailed, reply);
    const int isWhole = ReadSocketToArray(*data, lines);
    data.reset();
    if (IsTimeOver()) return BreakOff();
    if (!GetServerMessage(reply)) return 0;
    return isWhole && GetResultClass(reply) == 2 ? 1 : Failed(message::ftpListFailed, reply);
}

int CFtpClient::GetDirList_AvidFast(const char* command, CStringArray& lines)
{
    CStringArray reply;
    if (!SendCommand(command, nullptr) || !GetServerMessage(reply)) return 0;
    if (GetResultClass(reply) != 1) return Failed(message::ftpListFailed, reply);
    if (!ReadFastModeData(lines) || !GetServerMessage(reply)) return 0;
    return GetResultClass(reply) == 2 ? 1 : Failed(message::ftpListFailed, reply);
}

// --- files to here

int CFtpClient::GetFileToStream(const char* name, CStream& stream)
{
    switch (m_mode) {
    case ftpModeNormal:
        return GetFile_Normal();
    case ftpModePassive:
        return GetFile_Passive(name, stream);
    case ftpModeAvidFast:
        return GetFile_AvidFast(name, stream);
    }
    return Failed(message::ftpInternalError);
}

int CFtpClient::GetFile_Passive(const char* name, CStream& stream)
{
    if (!set_transfer_mode(true)) return 0;
    Socket data = SetupPassiveConnection();
    CStringArray reply;
    if (!data || !SendCommand("RETR", name) || !GetServerMessage(reply)) return 0;
    if (GetResultClass(reply) != 1) return Failed(message::ftpRetrieveFailed, reply);
    int isWhole;
    try {
        isWhole = ReadSocketToStream(*data, stream);
    } catch (CException*) {
        data.reset();
        ReadOwedReply();
        throw;
    }
    data.reset();
    if (!GetServerMessage(reply)) return 0;
    return isWhole && GetResultClass(reply) == 2 ? 1 : Failed(message::ftpRetrieveFailed, reply);
}

int CFtpClient::GetFile_AvidFast(const char* name, CStream& stream)
{
    CStringArray reply;
    if (!SendCommand("RETR", name) || !GetServerMessage(reply)) return 0;
    if (GetResultClass(reply) != 1) return Failed(message::ftpRetrieveFailed, reply);
    try {
        if (!ReadFastModeData(stream)) return 0;
    } catch (CException*) {
        BreakOff(); // the rest of the file is on its way on this connection
        throw;
    }
    if (!GetServerMessage(reply)) return 0;
    return GetResultClass(reply) == 2 ? 1 : Failed(message::ftpRetrieveFailed, reply);
}

int CFtpClient::ReadFastModeData(CStringArray& lines)
{
    lines.RemoveAll();
    for (std::size_t taken = 0; taken <= FtpListingSplitter::most;) {
        const std::size_t before = m_received->Bytes().size();
        const int count = lines.GetSize();
        const auto found = m_received->TakeFastLines(lines);
        if (found == FtpReader::Fast::isWhole) return 1;
        if (found == FtpReader::Fast::isTooLarge) break;
        const auto added = static_cast<std::size_t>(lines.GetSize() - count);
        taken += before - m_received->Bytes().size() + added * FtpListingSplitter::lineCost;
        if (!GetMoreData(controlRead, m_timeout)) return 0;
    }
    return BreakOff();
}

int CFtpClient::ReadFastModeData(CStream& stream)
{
    const DWORD position = stream.GetCurrentPos(), start = timeGetTime();
    while (m_received->TakeFastData(stream) != FtpReader::Fast::isWhole)
        if (!GetMoreData(blockSize, m_timeout)) return 0;
    LogString(0, summary("Transfer complete", stream, position, start));
    return 1;
}

// --- files to there

int CFtpClient::UploadStream(const char* name, CStream& stream)
{
    switch (m_mode) {
    case ftpModeNormal:
        return Upload_Normal();
    case ftpModePassive:
    case ftpModeAvidFast:
        return Upload_Passive(name, stream);
    }
    return Failed(message::ftpInternalError);
}

int CFtpClient::UploadBuffer(const char* name, const void* data, unsigned int size)
{
    if (size > INT_MAX) return Failed(message::ftpInternalError); // more than a stream over memory takes
    CMemoryStream stream(data, static_cast<int>(size));
    return UploadStream(name, stream);
}

int CFtpClient::Upload_Passive(const char* name, CStream& stream)
{
    if (!set_transfer_mode(true)) return 0;
    Socket data = SetupPassiveConnection();
    CStringArray reply;
    if (!data || !SendCommand("STOR", name) || !GetServerMessage(reply)) return 0;
    if (GetResultClass(reply) != 1) return Failed(message::ftpStoreFailed, reply);
    DWORD sent = 0;
    try {
        if (!WriteStreamToSocket(*data, stream, sent) || !AwaitTaken(*data)) {
            cutOff(*data);
            m_expectsLateReply = true;
            return 0;
        }
    } catch (CException*) {
        // A server that has seen nothing yet may wait for a connection that was cut, and for ever.
        if (sent > 0) cutOff(*data);
        data.reset();
        ReadOwedReply();
        throw;
    }
    data.reset(); // so the server learns of the end
    const DWORD limit = std::exchange(m_timeout, limitAfterUpload(m_timeout, sent));
    const int isAnswered = GetServerMessage(reply);
    m_timeout = limit;
    if (!isAnswered) return 0;
    return GetResultClass(reply) == 2 ? 1 : Failed(message::ftpStoreFailed, reply);
}
