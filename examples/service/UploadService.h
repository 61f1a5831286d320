// The frame's questions, answered for the upload service.
#pragma once

#include "Uploader.h"

#include <corekit/hosts/ServiceApp.h>
#include <corekit/logging/LogTarget.h>

#include <atomic>
#include <memory>
#include <thread>

class CUploadService : public CServiceApp {
public:
    CUploadService();
    ~CUploadService() override;

protected:
    int OnServiceStart() override;
    void OnServiceStop() override;
    CString GetRegistryKeyName() override;
    void OnControlStop() override { ExitService(0); }
    void OnControlPause() override { m_isPaused = true; }
    void OnControlContinue() override { m_isPaused = false; }
    void OnControlShutdown() override { ExitService(0); }
    void OnControlUserDefined(unsigned long code) override;
    int CanPauseContinue() override { return 1; }
    void ShowAbout() override;
    int ParseArgument(int*, char***) override { return 0; } // there are none

private:
    void Work();
    void Look();
    void KeepLog();

    CLogTarget m_log;
    std::string m_logFolder;
    bool m_isLogLost = false; // and reported
    std::unique_ptr<Uploader> m_uploader;
    DWORD m_interval = 0;
    std::atomic<bool> m_isPaused = false;
    HANDLE m_stop, m_lookNow, m_hasEnded;
    std::thread m_worker;
};
