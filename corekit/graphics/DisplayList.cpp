// Binding the display back end, and the displays that it lists.
#include "corekit/graphics/DirectDraw.h"

namespace {

constinit decltype(&DirectDrawCreateEx) create = nullptr;
constinit decltype(&DirectDrawEnumerateExA) enumerate = nullptr;

BOOL addDisplay(GUID* driver, char* description, char* name, void* context, HANDLE)
{
    auto& displays = *static_cast<CDXDisplayArray*>(context);
    if (!driver && displays.GetSize() > 0) return TRUE;
    CDXDisplay display;
    if (driver) display.m_driver = *driver;
    display.m_description = description;
    display.m_name = name;
    displays.Add(display);
    return TRUE;
}

} // namespace

bool dxutil_BindDirectDrawLibrary()
{
    if (create && enumerate) return true;
    const DisplayBackEnd* const backEnd = GetDisplayBackEnd();
    if (!backEnd || !backEnd->IsThere()) return false;
    create = &DirectDrawCreateEx;
    enumerate = &DirectDrawEnumerateExA;
    return true;
}

bool dxutil_CreateDirectDraw(GUID* driver, TCOMPointer<IDirectDraw7>& out)
{
    if (!dxutil_BindDirectDrawLibrary()) return false;
    return SUCCEEDED(create(driver, reinterpret_cast<void**>(out.Receive()), IID_IDirectDraw7, nullptr));
}

bool dxutil_EnumDisplays(CDXDisplayArray& out, bool attachedSecondary, bool detachedSecondary)
{
    if (!dxutil_BindDirectDrawLibrary()) return false;
    out.RemoveAll();
    const DWORD flags = (attachedSecondary ? DDENUM_ATTACHEDSECONDARYDEVICES : 0) |
                        (detachedSecondary ? DDENUM_DETACHEDSECONDARYDEVICES : 0);
    return enumerate(addDisplay, &out, flags) == S_OK;
}
