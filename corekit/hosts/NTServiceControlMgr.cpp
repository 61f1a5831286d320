#include "corekit/hosts/NTServiceControlMgr.h"

#include "corekit/logging/ProgressSink.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Waits.h"

#include <string>
#include <utility>

IMPLEMENT_DYNAMIC(CNTServiceControlMgr, CObject)

namespace {

constexpr DWORD betweenLooks = 500; // milliseconds

DWORD low(unsigned long value) { return static_cast<DWORD>(value); }

// A service's handle; closing it leaves the last error alone.
class OpenService {
public:
    OpenService(SC_HANDLE manager, const char* name, DWORD access)
        : m_handle(OpenServiceA(manager, name, access))
    {
    }
    OpenService(const OpenService&) = delete;
    OpenService& operator=(const OpenService&) = delete;
    ~OpenService()
    {
        const DWORD reason = GetLastError();
        if (m_handle) CloseServiceHandle(m_handle);
        SetLastError(reason);
    }
    operator SC_HANDLE() const { return m_handle; }

private:
    SC_HANDLE m_handle;
};

// Each name with its terminator, and one more at the end.
class NameList {
public:
    explicit NameList(const CStringArray& names)
    {
        for (int i = 0; i < names.GetSize(); ++i) m_text.append(names[i].GetString()).append(1, '\0');
        m_text.append(1, '\0');
    }
    const char* Get() const { return m_text.size() > 1 ? m_text.c_str() : nullptr; }

private:
    std::string m_text;
};

// Passes a tag through the platform's 32 bits; one that the platform does not set stays.
class Tag {
public:
    explicit Tag(unsigned long* target) : m_target(target), m_tag(target ? low(*target) : 0) {}
    Tag(const Tag&) = delete;
    Tag& operator=(const Tag&) = delete;
    ~Tag()
    {
        if (m_target) *m_target = m_tag;
    }
    DWORD* Get() { return m_target ? &m_tag : nullptr; }

private:
    unsigned long* m_target;
    DWORD m_tag;
};

} // namespace

int CNTServiceControlMgr::OpenLocal(unsigned long access)
{
    m_manager = OpenSCManagerA(nullptr, nullptr, low(access));
    return m_manager != nullptr;
}

void CNTServiceControlMgr::Close()
{
    if (m_manager) CloseServiceHandle(std::exchange(m_manager, nullptr));
}

int CNTServiceControlMgr::ServiceExists(const char* name)
{
    return OpenService(m_manager, name, SERVICE_QUERY_STATUS) != nullptr;
}

int CNTServiceControlMgr::QueryServiceStatus(const char* name, _SERVICE_STATUS& status)
{
    const OpenService service(m_manager, name, SERVICE_QUERY_STATUS);
    return service && ::QueryServiceStatus(service, &status);
}

int CNTServiceControlMgr::CreateServiceA(const char* name, const char* displayName, unsigned long serviceType,
                                         unsigned long startType, unsigned long errorControl,
                                         const char* binaryPath, const char* loadOrderGroup,
                                         unsigned long* tagId, const CStringArray& dependencies,
                                         const char* startName, const char* password)
{
    SC_HANDLE made = nullptr;
    {
        Tag tag(tagId);
        made = ::CreateServiceA(m_manager, name, displayName, SERVICE_ALL_ACCESS, low(serviceType),
                                low(startType), low(errorControl), binaryPath, loadOrderGroup, tag.Get(),
                                NameList(dependencies).Get(), startName, password);
    }
    if (made) return CloseServiceHandle(made);
    if (GetLastError() != ERROR_SERVICE_EXISTS) return 0;
    return ChangeServiceConfigA(name, displayName, serviceType, startType, errorControl, binaryPath,
                                loadOrderGroup, tagId, dependencies, startName, password);
}

int CNTServiceControlMgr::ChangeServiceConfigA(const char* name, const char* displayName,
                                               unsigned long serviceType, unsigned long startType,
                                               unsigned long errorControl, const char* binaryPath,
                                               const char* loadOrderGroup, unsigned long* tagId,
                                               const CStringArray& dependencies, const char* startName,
                                               const char* password)
{
    const OpenService service(m_manager, name, SERVICE_ALL_ACCESS);
    if (!service) return 0;
    Tag tag(tagId);
    return ::ChangeServiceConfigA(service, low(serviceType), low(startType), low(errorControl), binaryPath,
                                  loadOrderGroup, tag.Get(), NameList(dependencies).Get(), startName,
                                  password, displayName);
}

int CNTServiceControlMgr::DisableService(const char* name)
{
    const OpenService service(m_manager, name, SERVICE_ALL_ACCESS);
    return service && ::ChangeServiceConfigA(service, SERVICE_NO_CHANGE, SERVICE_DISABLED, SERVICE_NO_CHANGE,
                                             nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

int CNTServiceControlMgr::DeleteService(const char* name)
{
    const OpenService service(m_manager, name, SERVICE_ALL_ACCESS);
    return service && ::DeleteService(service);
}

int CNTServiceControlMgr::StopService(const char* name, CProgressSink* progress)
{
    const OpenService service(m_manager, name, SERVICE_ALL_ACCESS);
    SERVICE_STATUS status{};
    if (!service || !ControlService(service, SERVICE_CONTROL_STOP, &status)) return 0;
    CProgressSink::SetPos(progress, 0);
    for (;;) {
        if (!::QueryServiceStatus(service, &status)) return 0;
        if (status.dwCurrentState != SERVICE_RUNNING && status.dwCurrentState != SERVICE_STOP_PENDING) break;
        CProgressSink::SetPos(progress, static_cast<int>(status.dwCheckPoint));
        Sleep(betweenLooks);
    }
    return status.dwCurrentState == SERVICE_STOPPED;
}

int CNTServiceControlMgr::StartServiceA(const char* name, CProgressSink* progress)
{
    const OpenService service(m_manager, name, SERVICE_ALL_ACCESS);
    if (!service || !::StartServiceA(service, 0, nullptr)) return 0;
    CProgressSink::SetPos(progress, 0);
    for (SERVICE_STATUS status{}; ::QueryServiceStatus(service, &status); Sleep(betweenLooks)) {
        if (status.dwCurrentState == SERVICE_RUNNING) return 1;
        if (status.dwCurrentState == SERVICE_STOPPED) {
            SetLastError(status.dwWin32ExitCode != 0 ? status.dwWin32ExitCode : ERROR_SERVICE_NOT_ACTIVE);
            return 0;
        }
        if (status.dwCurrentState == SERVICE_START_PENDING)
            CProgressSink::SetPos(progress, static_cast<int>(status.dwCheckPoint));
    }
    return 0;
}
