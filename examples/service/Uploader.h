// The work of the service: what it does at each look into the folder.
#pragma once

#include "UploadSettings.h"

#include <corekit/logging/AlertSink.h>
#include <corekit/net/FtpClient.h>
#include <corekit/platform/FindFile.h>

#include <filesystem>
#include <map>
#include <set>
#include <utility>
#include <vector>

// One thread. Everything that happens to a script is told: sent, refused, or broken off. What was refused is
// tried again at every look and told once.
class Uploader {
public:
    // The event breaks a transfer off and ends the look.
    Uploader(UploadSettings settings, CAlertSink& alerts, HANDLE stop);

    // Sends what has not changed since the last look. How many scripts went.
    int Look();

private:
    using Path = std::filesystem::path;
    using State = std::pair<DWORDLONG, DWORDLONG>; // size and time of writing

    static State StateIn(const WIN32_FIND_DATAA& found);
    static State StateOf(const Path& script); // as it is now
    std::vector<Path> Complete();
    bool Connect(CFtpClient& ftp);
    bool Send(CFtpClient& ftp, const Path& script);
    void Refused(const Path& script, const std::string& why);
    bool PutAway(const Path& script, DWORD size);
    void Tell(eAlertCategory category, const Path& script, const std::string& what);
    bool IsStopping() const;

    UploadSettings m_settings;
    CAlertSink& m_alerts;
    HANDLE m_stop;
    std::map<Path, State> m_seen; // at the last look
    std::set<Path> m_refused;     // and told
    bool m_isReachable = true;
};
