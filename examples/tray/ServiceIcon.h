// The icon of one service: green while it runs, grey while it does not, amber on the way.
//
// It looks every two seconds. A double click starts the service, or stops it; the right button opens a menu.
#pragma once

#include <corekit/framework/ui/MessageMap.h>
#include <corekit/hosts/NTServiceControlMgr.h>
#include <corekit/hosts/ui/TrayIconApp.h>

class CServiceIcon : public CTrayIcon {
public:
    CServiceIcon(CTrayIconApp& app, const char* service);

    // From now on.
    void Watch();

    void OnLeftButtonDown() override {}
    void OnLeftButtonDblClk() override;
    void OnRightButtonDown() override;
    void OnRightButtonDblClk() override {}
    int GetIconId() override;
    void GetTipText(CString& text) override;
    int OnTimer(int timerId) override;
    int OnRegisteredMessage(unsigned int, unsigned int, long, long&) override { return 0; }
    void OnShutdown() override;

protected:
    void OnStart();
    void OnStop();
    void OnQuit();
    DECLARE_MESSAGE_MAP()

private:
    // 0 while the manager does not tell.
    DWORD State();
    void Look();
    using Operation = int (CNTServiceControlMgr::*)(const char*, CProgressSink*);
    CString Try(unsigned int textId, Operation operation);
    void Change(unsigned int textId, Operation operation);

    CTrayIconApp& m_app;
    const CString m_service;
    CNTServiceControlMgr m_manager;
    DWORD m_state = 0;
    CString m_reason; // why the state is not known
    int m_timer = 0;
    bool m_isBusy = false, m_quits = false; // it quits once it is not busy
};
