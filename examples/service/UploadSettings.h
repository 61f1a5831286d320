// What the service is told in the registry.
#pragma once

#include <corekit/platform/Types.h>

#include <string>

struct UploadSettings {
    std::string folder, pattern = "*.txt";
    std::string server, user = "anonymous", password, remoteFolder;
    int port = 21;
    DWORD interval = 5000, timeout = 10000; // milliseconds
    std::string logFolder = "/var/log/script-upload";
    int logDays = 14;

    bool IsComplete() const { return !folder.empty() && !server.empty(); }
};

// Missing values keep their default. Throws what the registry throws.
UploadSettings ReadUploadSettings(const char* keyName);
