#include "corekit/platform/Displays.h"

namespace {
constinit DisplayBackEnd* inForce = nullptr;
}

DisplayBackEnd* SetDisplayBackEnd(DisplayBackEnd* backEnd)
{
    DisplayBackEnd* const before = inForce;
    inForce = backEnd;
    return before;
}

DisplayBackEnd* GetDisplayBackEnd() { return inForce; }

HRESULT CoCreateInstance(const GUID& classId, IUnknown* outer, DWORD, const GUID& interfaceId, void** out)
{
    if (!out) return DDERR_INVALIDPARAMS;
    *out = nullptr;
    if (classId != CLSID_DirectDraw || outer || !inForce || !inForce->IsThere()) return REGDB_E_CLASSNOTREG;
    return inForce->Create(interfaceId, out);
}

HRESULT DirectDrawCreateEx(GUID* driver, void** out, const GUID& interfaceId, IUnknown* outer)
{
    if (!out || outer) return DDERR_INVALIDPARAMS;
    *out = nullptr;
    if (!inForce || !inForce->IsThere()) return DDERR_UNSUPPORTED;
    IDirectDraw2* object = nullptr;
    HRESULT result = inForce->Create(IID_IDirectDraw2, reinterpret_cast<void**>(&object));
    if (FAILED(result)) return result;
    result = object->Initialize(driver);
    if (SUCCEEDED(result)) result = object->QueryInterface(interfaceId, out);
    object->Release();
    return result;
}

HRESULT DirectDrawEnumerateExA(LPDDENUMCALLBACKEXA callback, void* context, DWORD flags)
{
    if (!callback) return DDERR_INVALIDPARAMS;
    return inForce && inForce->IsThere() ? inForce->Enumerate(callback, context, flags) : DDERR_UNSUPPORTED;
}
