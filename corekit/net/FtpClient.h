// CFtpClient: moves files and listings to and from one FTP server (RFC 959), each call until it is done.
//
//     CFtpClient ftp;
//     if (!ftp.Connect("server", 21, "user", "password", 1) || !ftp.UploadStream("a.txt", stream))
//         report(ftp.GetException());
//     ftp.Disconnect();
//
// Results are 1, or 0 with GetLastError (the library's text) and GetLastFtpMessage (the server's last line);
// both stay until the next failure. What fails on a stream throws, after the transfer was ended with the
// server. A server can cost the time limit at every read, all of them the total limit, and no more memory
// than 256 KiB for a reply and 64 MiB for a listing. One thread at a time; nothing is locked.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/net/XSocket.h"

#include <memory>

namespace corekit::detail {
class FtpReader;
}

enum eFtpMode : int {
    ftpModeNormal = 0,   // the server connects back: transfers fail, those of files without a text
    ftpModePassive = 1,  // a connection to the server for each transfer
    ftpModeAvidFast = 2, // listings and files come on the control connection; uploads as in passive mode
};

class COREKIT_API CFtpClient : public CObject {
    DECLARE_DYNAMIC(CFtpClient)
public:
    // kind 0: what is done and what goes to and fro, the password included; 1: errors.
    using LoggingCallback = void (*)(void* context, int kind, const char* text);

    // Not connected; passive mode, no callback.
    CFtpClient();
    // A copy shares the connection, and takes the mode, the callback without its context, and the settings.
    // Only one of the two may Disconnect, and they may not work at once.
    CFtpClient(const CFtpClient& other);
    CFtpClient& operator=(const CFtpClient& other);
    ~CFtpClient() override; // closes nothing: see Disconnect

    // Connects to a host by name or address, and logs on; a server that asks for no password gets none.
    // noDelay: 1 sends commands at once (TCP_NODELAY). A connection that stands is forgotten, not closed.
    int Connect(const char* host, int port, const char* user, const char* password, int noDelay);
    // Closes the connection, without a word to the server. What was received and not read is kept for the
    // next one, and so is the mode.
    void Disconnect();
    int IsConnected() const { return m_socket != nullptr; } // also when the other side has gone
    // Null for no callback. It is called on the thread of the operation, which it may end by Disconnect; the
    // text lives until it returns.
    void SetLoggingCallback(LoggingCallback callback, void* context);

    // Milliseconds that a connect, a read or a write may wait, 30,000 at first; reads of a file in passive
    // mode always 20,000. With 0 a connect takes as long as the system lets it.
    unsigned long GetTimeout() const { return m_timeout; }
    void SetTimeout(unsigned long milliseconds) { m_timeout = static_cast<DWORD>(milliseconds); }
    // Bounds all that is asked for from now on, however many bytes move: what is not done after so many
    // milliseconds fails, and the connection is closed. 0, as at first, takes the bound away.
    void SetTotalTimeout(unsigned long milliseconds);
    // Whether that bound has passed; 0 without one.
    int IsTimeOver() const { return m_total != 0 && TimeLeft() == 0; }
    // Sends SITE IDLE with a number of seconds and leaves the server's reply unread: the next command takes
    // it for its own.
    int SetIdleTimeout(int value);
    // AvidFast is asked of the server (SITE FAST=4) and cannot be left; the others are not told to it. 1
    // also when the mode is in use already.
    int SetConnectionMode(eFtpMode mode);
    // 1: data connections go to the host of the control connection, whatever address the server names. Off at
    // first.
    void SetDataToControlHost(int enable) { m_dataToControlHost = enable; }

    // What failed last, in words, and the server's last line about it, empty where the server had no say.
    CString GetLastError() const { return m_lastError; }
    CString GetLastFtpMessage() const { return m_lastMessage; }
    // Both texts as an exception for the caller to delete, the server's line inside.
    CException* GetException() const;

    // Names go to the server as they are; one with a line end in it is refused (message::ftpLineEndRefused).
    int ChangeDirectory(const char* path);
    int MakeDirectory(const char* path);
    int RemoveDirectoryA(const char* path);
    int DeleteFileA(const char* name); // of the current folder, or by a path as the server understands it
    int NoOp();                        // asks the server for a sign of life
    // The current folder, a line each, in place of what the array held. One without files may be an empty
    // array. The first form is the server's own and for people, the second has bare names.
    int GetRawDirectoryListing(CStringArray& lines); // LIST
    int GetNameList(CStringArray& lines);            // NLST
    // Writes the file at the stream's position. In AvidFast mode a file ends at its first byte 4. What came
    // before a failure stays in the stream.
    int GetFileToStream(const char* name, CStream& stream);
    // Sends what lies between the stream's position and its end, and waits until the server has confirmed
    // it. A file of that name is replaced.
    int UploadStream(const char* name, CStream& stream);
    int UploadBuffer(const char* name, const void* data, unsigned int size);

private:
    using Socket = std::unique_ptr<XSocket>;

    static constexpr DWORD controlRead = 0x1000; // bytes of a reply or a listing that are read at once

    // Reads what the server has sent, at most `size` bytes, waiting `limit` milliseconds.
    int GetMoreData(DWORD size, DWORD limit);
    int ReadOneLine(CString& line, DWORD start);
    // All lines of one reply; the last one counts.
    int GetServerMessage(CStringArray& lines);
    static int GetResultClass(const CStringArray& lines); // the reply's first digit
    int WriteDataToSocket(XSocket& socket, const void* data, DWORD size);
    int SendCommand(const char* command, const char* argument);
    void SetLastError(UINT id);
    void SetLastError(UINT id, const CStringArray& lines);
    void LogString(int kind, const char* text);
    int Failed(UINT id); // sets the error; 0
    int Failed(UINT id, const CStringArray& lines);
    int BreakOff();       // closes the connection; 0
    void ReadOwedReply(); // after a transfer that failed here
    void DropLateReply();
    DWORD TimeLeft() const; // milliseconds of the total limit
    DWORD Within(DWORD limit) const { return limit < TimeLeft() ? limit : TimeLeft(); }
    DWORD ConnectLimit() const { return Within(m_timeout ? m_timeout : INFINITE); }
    int AwaitTaken(XSocket& socket);

    int WaitForBanner();
    int LogonToSite(const char* user, const char* password);
    int Command(const char* command, const char* argument, UINT errorId);
    int set_transfer_mode(bool binary); // TYPE I or TYPE A
    // PASV, and the connection that the server offers; null with the error set.
    Socket SetupPassiveConnection();
    int ReadSocketToArray(XSocket& socket, CStringArray& lines);
    int ReadSocketToStream(XSocket& socket, CStream& stream);
    int WriteStreamToSocket(XSocket& socket, CStream& stream, DWORD& sent);
    int ReadFastModeData(CStringArray& lines);
    int ReadFastModeData(CStream& stream);

    int GetDirList(const char* command, CStringArray& lines);
    int GetDirList_Normal();
    int GetDirList_Passive(const char* command, CStringArray& lines);
    int GetDirList_AvidFast(const char* command, CStringArray& lines);
    int GetFile_Normal() { return 0; }
    int GetFile_Passive(const char* name, CStream& stream);
    int GetFile_AvidFast(const char* name, CStream& stream);
    int Upload_Normal() { return 0; }
    int Upload_Passive(const char* name, CStream& stream);

    XSocket* m_socket = nullptr; // owned, by one of the copies
    CString m_lastError;
    CString m_lastMessage;
    std::unique_ptr<corekit::detail::FtpReader> m_received; // control bytes that nobody has consumed
    eFtpMode m_mode = ftpModePassive;
    LoggingCallback m_callback = nullptr;
    void* m_context = nullptr;
    DWORD m_timeout = 30000;
    DWORD m_total = 0, m_totalStart = 0; // by timeGetTime
    int m_dataToControlHost = 0;         // see SetDataToControlHost
    bool m_expectsLateReply = false;     // of an upload that failed
};
