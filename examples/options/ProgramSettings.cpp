#include "ProgramSettings.h"

#include "corekit/stores/RegistryKey.h"

namespace {

constexpr const char* settingsKey = "Software\\CoreKit Examples\\Options";
constexpr const char* handControlKey = "Software\\CoreKit Examples\\Options\\Hand Control";
constexpr const char* codePageName = "Code Page";
constexpr const char* logEnabledName = "Log Enabled";
constexpr const char* logMaskName = "Log Levels";
constexpr const char* logDaysName = "Log Days";

} // namespace

void ProgramSettings::Load()
{
    CRegistryKey key;
    if (!key.Open(HKEY_CURRENT_USER, settingsKey)) return;
    key.GetValue(codePageName, codePage);
    key.GetValue(logEnabledName, logEnabled);
    key.GetValue(logMaskName, logMask);
    key.GetValue(logDaysName, logDays);
    handControl.LoadFromRegistry(HKEY_CURRENT_USER, handControlKey);
}

void ProgramSettings::Save()
{
    CRegistryKey key;
    key.Create(HKEY_CURRENT_USER, settingsKey);
    key.SetValue(codePageName, codePage);
    key.SetValue(logEnabledName, logEnabled);
    key.SetValue(logMaskName, logMask);
    key.SetValue(logDaysName, logDays);
    handControl.SaveToRegistry(HKEY_CURRENT_USER, handControlKey);
}

void ProgramSettings::ApplyTo(CLogTarget& log) const
{
    log.SetLogMask(logEnabled ? logMask : 0);
    log.SetOldLogFileDays(logDays);
}
