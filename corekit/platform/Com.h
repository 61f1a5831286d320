// Objects that count their users and are asked for their interfaces.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"
#include "corekit/platform/Variant.h" // S_OK

inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002); // the object does not speak it
inline constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154); // no such class

constexpr bool FAILED(HRESULT result) { return result < 0; }     // below 0
constexpr bool SUCCEEDED(HRESULT result) { return result >= 0; } // S_OK and other values that are no failure

// The base of all interfaces. A reference belongs to whoever got it and is given back with Release;
// COMPointer.h does so by itself.
struct IUnknown {
    // A pointer to the interface, with a reference for the caller; null and E_NOINTERFACE if there is none.
    virtual HRESULT QueryInterface(const GUID& interfaceId, void** out) = 0;
    virtual DWORD AddRef() = 0;  // how many there are then
    virtual DWORD Release() = 0; // how many are left; the last one destroys the object
    virtual ~IUnknown() = default;
};

inline constexpr DWORD CLSCTX_ALL = 23; // any context

// An object of the class with one reference. The one class known here is that of Displays.h; `outer` must be
// null, the context does not matter. Null and REGDB_E_CLASSNOTREG for any other class and without a back end
// for it.
COREKIT_API HRESULT CoCreateInstance(const GUID& classId, IUnknown* outer, DWORD context,
                                     const GUID& interfaceId, void** out);
