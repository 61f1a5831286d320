#include "Uploader.h"

#include <corekit/foundation/ChainedException.h>
#include <corekit/platform/Files.h>
#include <corekit/platform/HarmlessText.h>
#include <corekit/platform/Waits.h>
#include <corekit/stores/FileStream.h>

namespace fs = std::filesystem;

namespace {

DWORDLONG Wide(DWORD high, DWORD low) { return DWORDLONG{high} << 32 | low; }

bool IsSet(HANDLE event) { return WaitForSingleObject(event, 0) == WAIT_OBJECT_0; }

// A file that can be read until the event is set.
class StoppableFile : public CFileStream {
public:
    explicit StoppableFile(HANDLE stop) : m_stop(stop) {}

protected:
    void InternalRead(void* buffer, DWORD count) override
    {
        if (IsSet(m_stop)) ThrowChainedException(nullptr, "The service is stopping.");
        CFileStream::InternalRead(buffer, count);
    }

private:
    HANDLE m_stop;
};

// Keeps one alert at one line, and what others sent from steering a terminal.
std::string OneLine(std::string line)
{
    for (char& c : line)
        if (c == '\n' || c == '\r') c = ' ';
    return corekit::HarmlessText(line, corekit::LineEnds::escaped);
}
std::string OneLine(const CString& text) { return OneLine(std::string(text.GetString())); }

// A place for the script among those sent: one of the same name keeps its own.
fs::path FreePlace(const fs::path& folder, const fs::path& name)
{
    fs::path place = folder / name;
    for (int turn = 2; fs::exists(fs::symlink_status(place)); ++turn)
        place = folder / (name.stem().string() + "." + std::to_string(turn) + name.extension().string());
    return place;
}

std::string Why(const CFtpClient& ftp)
{
    const std::string answer = OneLine(ftp.GetLastFtpMessage());
    return OneLine(ftp.GetLastError()) + (answer.empty() ? "" : ": " + answer);
}

// The connection goes with its object.
struct Connection {
    CFtpClient ftp;
    ~Connection() { ftp.Disconnect(); }
};

} // namespace

Uploader::Uploader(UploadSettings settings, CAlertSink& alerts, HANDLE stop)
    : m_settings(std::move(settings)), m_alerts(alerts), m_stop(stop)
{
}

bool Uploader::IsStopping() const { return IsSet(m_stop); }

int Uploader::Look()
{
    const std::vector<Path> scripts = Complete();
    Connection connection;
    if (scripts.empty() || !Connect(connection.ftp)) return 0;
    int sent = 0;
    for (const Path& script : scripts) {
        if (IsStopping()) break;
        sent += Send(connection.ftp, script);
    }
    return sent;
}

Uploader::State Uploader::StateIn(const WIN32_FIND_DATAA& found)
{
    return {Wide(found.nFileSizeHigh, found.nFileSizeLow),
            Wide(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime)};
}

Uploader::State Uploader::StateOf(const Path& script)
{
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA(script.c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    return StateIn(found);
}

// The scripts that are as they were at the last look.
std::vector<fs::path> Uploader::Complete()
{
    std::map<Path, State> seen;
    std::vector<Path> complete;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((fs::path(m_settings.folder) / m_settings.pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return complete;
    do {
        const Path script = fs::path(m_settings.folder) / found.cFileName;
        std::error_code gone;
        if (!fs::is_regular_file(script, gone)) continue; // a pipe may never end
        const State state = StateIn(found);
        const auto before = m_seen.find(script);
        if (before != m_seen.end() && before->second == state) complete.push_back(script);
        seen.emplace(script, state);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    m_seen = std::move(seen);
    std::erase_if(m_refused, [this](const Path& script) { return !m_seen.contains(script); });
    return complete;
}

// An outage is told when it begins and when it ends.
bool Uploader::Connect(CFtpClient& ftp)
{
    ftp.SetTimeout(m_settings.timeout);
    ftp.SetDataToControlHost(1);
    const bool isConnected =
        ftp.Connect(m_settings.server.c_str(), m_settings.port, m_settings.user.c_str(),
                    m_settings.password.c_str(), 0) &&
        (m_settings.remoteFolder.empty() || ftp.ChangeDirectory(m_settings.remoteFolder.c_str()));
    if (isConnected && !m_isReachable) m_alerts.Alert(alertInformation, "The server can be reached again");
    if (!isConnected && m_isReachable)
        m_alerts.Alert(alertWarning, ("The server cannot be reached, scripts wait: " + Why(ftp)).c_str());
    m_isReachable = isConnected;
    return isConnected;
}

bool Uploader::Send(CFtpClient& ftp, const Path& script)
{
    StoppableFile file(m_stop);
    if (!file.Open(script.c_str(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0)) {
        Refused(script, "cannot be read, " + OneLine(GetLastErrorString()));
        return false;
    }
    try {
        if (!ftp.UploadStream(script.filename().c_str(), file)) {
            Refused(script, "not sent, " + Why(ftp));
            return false;
        }
    } catch (CException* e) {
        const std::string why = OneLine(GetExceptionMsg(e));
        e->Delete();
        Tell(alertWarning, script, "broken off, will be sent again. " + why);
        return false;
    }
    const DWORD size = file.GetSize();
    file.Close();
    if (StateOf(script) != m_seen[script]) { // it grew while it was sent
        Tell(alertWarning, script, "changed while it was sent, will be sent again");
        return false;
    }
    return PutAway(script, size);
}

void Uploader::Refused(const Path& script, const std::string& why)
{
    if (m_refused.insert(script).second) Tell(alertMinorError, script, why);
}

bool Uploader::PutAway(const Path& script, DWORD size)
{
    m_refused.erase(script);
    std::error_code failed;
    const fs::path sent = script.parent_path() / "sent";
    fs::create_directories(sent, failed);
    fs::rename(script, FreePlace(sent, script.filename()), failed);
    if (failed)
        Tell(alertMajorError, script, "sent, but cannot be moved away: " + failed.message());
    else
        Tell(alertInformation, script, "sent, " + std::to_string(size) + " bytes");
    return !failed;
}

void Uploader::Tell(eAlertCategory category, const Path& script, const std::string& what)
{
    const std::string name = corekit::HarmlessText(script.filename().string(), corekit::LineEnds::escaped);
    m_alerts.Alert(category, (name + ": " + what).c_str());
}
