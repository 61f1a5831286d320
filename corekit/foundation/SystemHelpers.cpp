#include "corekit/foundation/SystemHelpers.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/Module.h"
#include "corekit/platform/Guid.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Overlapped.h"
#include "corekit/platform/Waits.h"
#include "corekit/resources/Messages.h"

#include <climits>
#include <cstring>

namespace {
template <class T>
T* orThrow(T* result)
{
    if (!result) throw GetLastErrorException();
    return result;
}
} // namespace

void* scDuplicateHandle(void* handle)
{
    HANDLE copy = nullptr;
    if (!DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        ThrowChainedException(GetLastErrorException(), message::duplicateHandleFailed);
    return copy;
}

CWinThread* scBeginThread(AFX_THREADPROC procedure, void* parameter, int priority, UINT stackBytes,
                          DWORD flags, _SECURITY_ATTRIBUTES* security)
{
    return orThrow(AfxBeginThread(procedure, parameter, priority, stackBytes, flags, security));
}

CWinThread* scBeginThread(CRuntimeClass* threadClass, int priority, UINT stackBytes, DWORD flags,
                          _SECURITY_ATTRIBUTES* security)
{
    return orThrow(AfxBeginThread(threadClass, priority, stackBytes, flags, security));
}

void* scCreateEvent(_SECURITY_ATTRIBUTES* security, int manualReset, int initialState, const char* name)
{
    return orThrow(CreateEventA(security, manualReset, initialState, name));
}

int scLoadResource(const char* name, const char* type, CByteArray& data)
{
    bool fits = false;
    AfxUseResource(name, type, [&](std::span<const std::byte> bytes) {
        fits = bytes.size() <= INT_MAX;
        if (!fits) return;
        data.SetSize(static_cast<int>(bytes.size()));
        if (!bytes.empty()) std::memcpy(data.GetData(), bytes.data(), bytes.size());
    });
    return fits;
}

CString scGetClassName(CObject* object)
{
    return object ? CString(object->GetRuntimeClass()->m_lpszClassName) : CString();
}

int GetOverlappedResultWithTimeout(void* file, OVERLAPPED* overlapped, DWORD* transferred, DWORD timeoutMs)
{
    if (WaitForSingleObject(overlapped->hEvent, timeoutMs) == WAIT_TIMEOUT) {
        SetLastError(ERROR_TIMEOUT);
        return 0;
    }
    return GetOverlappedResult(file, overlapped, transferred, TRUE);
}

CString scFormatHex32(DWORD value) { return scFormatString("%08X", value); }
StringA scFormatHex32A(DWORD value) { return scFormatStringA("%08X", value); }
StringW scFormatHex32W(DWORD value) { return scFormatStringW(u"%08X", value); }

CString StringFromClassID(const _GUID& id)
{
    WCHAR text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

_GUID ClassIDFromString(const char* text)
{
    WCHAR wide[40] = {};
    for (std::size_t i = 0; text && text[i] && i < 39; ++i) wide[i] = static_cast<unsigned char>(text[i]);
    _GUID id{};
    CLSIDFromString(wide, &id);
    return id;
}
