#include "UploadService.h"

#include <corekit/foundation/ChainedException.h>
#include <corekit/net/XSocketApi.h>
#include <corekit/platform/Handles.h>
#include <corekit/platform/Waits.h>
#include <corekit/Version.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <utility>

namespace {
constexpr unsigned long lookNow = 128; // the control that does not wait for the interval
constexpr DWORD stepOfStop = 5000;     // milliseconds
} // namespace

CUploadService::CUploadService()
    : CServiceApp("Script Upload"), m_stop(CreateEventA(nullptr, TRUE, FALSE, nullptr)),
      m_lookNow(CreateEventA(nullptr, FALSE, FALSE, nullptr)),
      m_hasEnded(CreateEventA(nullptr, TRUE, FALSE, nullptr))
{
}

CUploadService::~CUploadService()
{
    for (const HANDLE event : {m_stop, m_lookNow, m_hasEnded}) CloseHandle(event);
}

CString CUploadService::GetRegistryKeyName() { return "Software\\Corvane\\Script Upload"; }

void CUploadService::ShowAbout() { std::printf("Script Upload, on CoreKit %s\n", CoreKitVersion()); }

int CUploadService::OnServiceStart()
{
    CAlertSink& alerts = *GetAlertSink();
    const UploadSettings settings = ReadUploadSettings(GetRegistryKeyName());
    m_log.SetOldLogFileDays(settings.logDays);
    if (!m_log.CreateLogFile("Script Upload", settings.logFolder.c_str(), 1)) {
        alerts.AlertSysError(alertMajorError, ("No log can be written in " + settings.logFolder).c_str());
        return 0;
    }
    alerts.SetLogTarget(&m_log);
    if (!settings.IsComplete()) {
        alerts.Alert(alertMajorError, "The registry does not tell Folder and Server");
        return 0;
    }
    if (CException* e = XSocketApi::InitSockets()) {
        alerts.AlertException(alertMajorError, "There are no sockets", e);
        e->Delete();
        return 0;
    }
    m_interval = settings.interval;
    m_logFolder = settings.logFolder;
    m_uploader = std::make_unique<Uploader>(settings, alerts, m_stop);
    m_worker = std::thread([this] { Work(); });
    return 1;
}

// A transfer ends at the next block; a server that does not answer costs its time limit.
void CUploadService::OnServiceStop()
{
    SetEvent(m_stop);
    if (m_worker.joinable()) {
        while (WaitForSingleObject(m_hasEnded, stepOfStop) == WAIT_TIMEOUT) Checkpoint();
        m_worker.join();
    }
    GetAlertSink()->SetLogTarget(nullptr);
    m_log.CloseLogFile();
}

void CUploadService::OnControlUserDefined(unsigned long code)
{
    if (code == lookNow)
        SetEvent(m_lookNow);
    else
        CServiceApp::OnControlUserDefined(code);
}

void CUploadService::Work()
{
    const HANDLE events[] = {m_stop, m_lookNow};
    while (WaitForMultipleObjects(2, events, FALSE, m_interval) != WAIT_OBJECT_0)
        if (!m_isPaused) Look();
    SetEvent(m_hasEnded);
}

// Somebody may remove the folder of the log; what is written then goes nowhere. The alerts go to the journal
// too.
void CUploadService::KeepLog()
{
    std::error_code unknown;
    if (std::filesystem::exists(m_logFolder, unknown) || unknown) return;
    m_log.CloseLogFile();
    std::filesystem::create_directories(m_logFolder, unknown);
    if (m_log.CreateLogFile("Script Upload", m_logFolder.c_str(), 1))
        GetAlertSink()->Alert(alertWarning, "The folder of the log was gone and has been made again");
    else if (!std::exchange(m_isLogLost, true))
        GetAlertSink()->AlertSysError(alertMajorError, ("No log can be written in " + m_logFolder).c_str());
}

// Whatever fails, the next look comes.
void CUploadService::Look()
try {
    try {
        KeepLog();
        m_uploader->Look();
    } catch (CException* e) {
        const CString why = GetExceptionMsg(e);
        e->Delete();
        GetAlertSink()->Alert(alertMajorError, "A look into the folder failed", why);
    } catch (const std::exception& e) {
        GetAlertSink()->Alert(alertMajorError, "A look into the folder failed", e.what());
    }
} catch (CException* e) { // not even the log could be told
    e->Delete();
}
