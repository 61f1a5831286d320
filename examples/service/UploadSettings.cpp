#include "UploadSettings.h"

#include <corekit/stores/RegistryKey.h>

namespace {

void Read(const CRegistryKey& key, const char* name, std::string& value)
{
    CString text;
    if (key.GetValue(name, text)) value = text;
}

template <class Number>
void Read(const CRegistryKey& key, const char* name, Number& value)
{
    int number = 0;
    if (key.GetValue(name, number) && number >= 0) value = static_cast<Number>(number);
}

} // namespace

UploadSettings ReadUploadSettings(const char* keyName)
{
    UploadSettings settings;
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, keyName);
    Read(key, "Folder", settings.folder);
    Read(key, "Pattern", settings.pattern);
    Read(key, "Server", settings.server);
    Read(key, "Port", settings.port);
    Read(key, "User", settings.user);
    Read(key, "Password", settings.password);
    Read(key, "Remote Folder", settings.remoteFolder);
    Read(key, "Interval", settings.interval);
    Read(key, "Timeout", settings.timeout);
    Read(key, "Log Folder", settings.logFolder);
    Read(key, "Log Days", settings.logDays);
    return settings;
}
