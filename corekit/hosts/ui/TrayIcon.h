// CTrayIcon: one icon of a tray program, with what it does when it is clicked.
//
// Derive from it, give it to CTrayIconApp::AddIcon, and answer the mouse. The program's loop calls all of it
// on the user-interface thread. Commands and message maps work as for every CCmdTarget: the program asks each
// icon for what it does not handle itself.
#pragma once

#include "corekit/framework/CmdTarget.h"
#include "corekit/framework/String.h"

class COREKIT_API CTrayIcon : public CCmdTarget {
    DECLARE_DYNAMIC(CTrayIcon)
public:
    // What the mouse does to the icon.
    virtual void OnLeftButtonDown() = 0;
    virtual void OnLeftButtonDblClk() = 0;
    virtual void OnRightButtonDown() = 0;
    virtual void OnRightButtonDblClk() = 0;
    // The number of the icon's resource, and the text that appears beside it; asked for whenever the icon is
    // shown or changed.
    virtual int GetIconId() = 0;
    virtual void GetTipText(CString& text) = 0;
    // Nonzero if the timer is this icon's.
    virtual int OnTimer(int timerId) = 0;
    // A registered message to the program's window; nonzero if it was handled.
    virtual int OnRegisteredMessage(unsigned int message, unsigned int wParam, long lParam, long& result) = 0;
    // The program ends; the icon has left the tray.
    virtual void OnShutdown() = 0;

    // Calls the operation for a mouse message; others are ignored.
    void OnMouseMessage(long message);
    // Deletes the object if it was made to go with the program.
    void Delete();

protected:
    // With `autoDelete` nonzero the program deletes the icon when it shuts down.
    explicit CTrayIcon(int autoDelete) : m_autoDelete(autoDelete) {}

    // A timer's number, 0 if there is none to be had. It ticks until KillTimer.
    int SetTimer(unsigned int milliseconds);
    void KillTimer(int timerId);

private:
    int m_autoDelete; // whether Delete deletes
};
