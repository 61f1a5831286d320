// CAlertSink: where a program that runs unattended reports what its operator should know.
//
// A report is a category and a text. The sink hands it to every hook, in the order of their registration, and
// then to the log. It keeps nothing, shows nothing and never fails; what a hook throws passes to the caller.
//
//     CAlertSink alerts;
//     alerts.RegisterHook([](eAlertCategory, const char* text) { std::puts(text); });
//     alerts.SetLogTarget(&log);
//     alerts.Alert(alertWarning, "Disk nearly full", "12 MB left");
//
// Alert and its kin may be called through a null pointer: the report then vanishes. Code that is compiled
// with a check for null objects uses the static forms, which take the pointer. Any thread may report once
// hooks and log are set; hooks of two threads run at once.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/logging/AlertSinkConfig.h"

class CException;
class CLogTarget;

// The level in the log is Information, Warning, MajorError or MinorError; any other value is a minor error.
enum eAlertCategory : int {
    alertInformation = 0, // nothing is wrong
    alertWarning = 1,     // something may go wrong
    alertMajorError = 2,  // a part of the work is not done
    alertMinorError = 3,  // something failed without harm
};

class COREKIT_API CAlertSink : public CObject {
    DECLARE_DYNAMIC(CAlertSink)
public:
    // Called on the thread that reports; the text lives until it returns.
    using Hook = void (*)(eAlertCategory category, const char* text);

    CAlertSink();
    ~CAlertSink() override;

    // Keeps the settings and the program's name. Not needed before Alert. Always 1.
    int Initialise(const CAlertSinkConfig& config, const char* name);
    // For good; a hook registered twice is called twice. One that is registered by a hook is called in the
    // same report.
    void RegisterHook(void (*hook)(eAlertCategory, const char*));
    // Stays the caller's; null for none.
    void SetLogTarget(CLogTarget* target);

    // Reports a text, or one of the string table by its number.
    void Alert(eAlertCategory category, const char* text);
    void Alert(eAlertCategory category, unsigned int stringId);
    // Two lines.
    void Alert(eAlertCategory category, const char* title, const char* detail);
    // The text, and below it that of the calling thread's last error.
    void AlertSysError(eAlertCategory category, const char* text);
    void AlertSysError(eAlertCategory category, unsigned int stringId);
    // The text, and below it that of the exception, which stays the caller's, or of the structured exception
    // of that code.
    void AlertException(eAlertCategory category, const char* text, CException* e);
    void AlertException(eAlertCategory category, const char* text, unsigned int code);

    // The same; a null sink does no harm.
    static void Alert(CAlertSink* sink, eAlertCategory category, const char* text);
    static void Alert(CAlertSink* sink, eAlertCategory category, unsigned int stringId);
    static void Alert(CAlertSink* sink, eAlertCategory category, const char* title, const char* detail);
    static void AlertSysError(CAlertSink* sink, eAlertCategory category, const char* text);
    static void AlertSysError(CAlertSink* sink, eAlertCategory category, unsigned int stringId);
    static void AlertException(CAlertSink* sink, eAlertCategory category, const char* text, CException* e);
    static void AlertException(CAlertSink* sink, eAlertCategory category, const char* text,
                               unsigned int code);

private:
    CAlertSinkConfig m_config;
    CString m_name;
    CArray<Hook, Hook> m_hooks;
    CLogTarget* m_logTarget = nullptr;
};
