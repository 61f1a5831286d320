#include "corekit/platform/Variant.h"

#include "corekit/platform/Runtime.h"

#include <cstdlib>
#include <cstring>

namespace {

// The length in bytes stands in the four bytes before the text; eight are taken to keep the text aligned.
constexpr std::size_t prefix = 8;

char* blockOf(BSTR text) { return reinterpret_cast<char*>(text) - prefix; }

} // namespace

BSTR SysAllocStringLen(const WCHAR* text, UINT length)
{
    if (length > (0xFFFFFFFFu - prefix) / sizeof(WCHAR) - 1) return nullptr;
    const DWORD bytes = length * static_cast<DWORD>(sizeof(WCHAR));
    char* block = static_cast<char*>(std::malloc(prefix + bytes + sizeof(WCHAR)));
    if (block == nullptr) return nullptr;
    std::memcpy(block + prefix - sizeof bytes, &bytes, sizeof bytes);
    if (text != nullptr) std::memcpy(block + prefix, text, bytes);
    std::memset(block + prefix + bytes, 0, sizeof(WCHAR));
    return reinterpret_cast<BSTR>(block + prefix);
}

BSTR SysAllocString(const WCHAR* text)
{
    return text != nullptr ? SysAllocStringLen(text, static_cast<UINT>(crt16::wcslen(text))) : nullptr;
}

void SysFreeString(BSTR text)
{
    if (text != nullptr) std::free(blockOf(text));
}

void VariantInit(VARIANT* variant) { *variant = VARIANT{}; }

HRESULT VariantClear(VARIANT* variant)
{
    switch (variant->vt) {
    case VT_BSTR:
        SysFreeString(variant->bstrVal);
        [[fallthrough]];
    case VT_EMPTY:
    case VT_NULL:
    case VT_I2:
    case VT_I4:
    case VT_R8:
    case VT_BOOL:
        VariantInit(variant);
        return S_OK;
    default:
        return DISP_E_BADVARTYPE;
    }
}
