// CNTServiceControlMgr: installs, starts, stops and removes the machine's services.
//
//     CNTServiceControlMgr manager;
//     if (!manager.OpenLocal(SC_MANAGER_ALL_ACCESS) || !manager.StartServiceA("Script Upload", sink))
//         return GetLastErrorString();
//
// A service is known by its name; nothing of it is kept open between two calls. Operations give nonzero for
// success, else 0 with the reason as the thread's last error (platform/ServiceManager.h has the numbers);
// those who report it find texts in resources/Messages.h, serviceCreateFailed and its neighbours. One thread
// at a time.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/ServiceManager.h"

class CProgressSink;

class COREKIT_API CNTServiceControlMgr : public CObject {
    DECLARE_DYNAMIC(CNTServiceControlMgr)
public:
    CNTServiceControlMgr() = default;
    CNTServiceControlMgr(const CNTServiceControlMgr&) = delete;
    CNTServiceControlMgr& operator=(const CNTServiceControlMgr&) = delete;
    ~CNTServiceControlMgr() override { Close(); }

    // Connects to this machine's manager; `access` is SC_MANAGER_ rights, which the later calls need. Once
    // open, close it before it is opened again.
    int OpenLocal(unsigned long access);

    void Close(); // nothing happens if it is not open

    // Nonzero for a service that is there and may be asked for its state.
    int ServiceExists(const char* name);
    // The state of the moment; a service that failed is stopped, with error 1066 and its own exit code.
    int QueryServiceStatus(const char* name, _SERVICE_STATUS& status);

    // Installs the service; one of that name that exists gets these settings instead. Types and accounts are
    // those of the platform's functions of the same names; null leaves out, or for a change leaves as it is.
    int CreateServiceA(const char* name, const char* displayName, unsigned long serviceType,
                       unsigned long startType, unsigned long errorControl, const char* binaryPath,
                       const char* loadOrderGroup, unsigned long* tagId, const CStringArray& dependencies,
                       const char* startName, const char* password);
    int ChangeServiceConfigA(const char* name, const char* displayName, unsigned long serviceType,
                             unsigned long startType, unsigned long errorControl, const char* binaryPath,
                             const char* loadOrderGroup, unsigned long* tagId,
                             const CStringArray& dependencies, const char* startName, const char* password);
    // The service can then not be started; one that runs goes on.
    int DisableService(const char* name);
    // Takes the service away; one that runs goes on until it ends.
    int DeleteService(const char* name);

    // Start or stop the service and look on twice a second until it has: there is no limit of time while the
    // service says that it is on its way. Its check point is the position of the sink, which may be null.
    int StartServiceA(const char* name, CProgressSink* progress);
    int StopService(const char* name, CProgressSink* progress);

private:
    SC_HANDLE m_manager = nullptr;
};
