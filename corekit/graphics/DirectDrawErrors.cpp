#include "corekit/graphics/DirectDraw.h"

namespace {

struct ErrorText {
    DWORD code;
    const char* text;
};

constexpr ErrorText errorTexts[] = {
    {0x80070057, "One or more of the input parameters is invalid."},
    {0x8007000E, "DirectDraw does not have enough memory to perform the operation."},
    {0x8876017C, "DirectDraw does not have enough memory to perform the operation."},
    {0x8876005F, "Unable to match primary surface creation request with existing primary surface."},
    {0x88760064, "One or more of the caps bits passed to the callback are incorrect."},
    {0x88760082, "DirectDraw received a pointer that was an invalid DirectDraw object"},
    {0x88760091, "The pixel format was invalid as "
                 "specified."},
    {0x887600B4, "Operation could not be carried out because there is no alpha accleration hardware present "
                 "or available."},
    {0x887600D4, "Create function called without SetCooperativeLevel being called."},
    {0x887600E1, "Operation requires the application to have exclusive mode but the application does not "
                 "have exclusive mode."},
    {0x887600E6, "Flipping visible surfaces is not supported."},
    {0x88760154,
     "Operation could not be carried out because there is no hardware support for zbuffer blitting."},
    {0x88760233,
     "A hardware-only DirectDraw object creation was attempted but the driver did not support any hardware."},
    {0x88760234, "This process already has created a primary surface."},
    {0x88760235, "Software emulation not available."},
};

} // namespace

CString CDirectDraw::GetErrorString(HRESULT code)
{
    CString text;
    text.Format("DirectDraw error code %d (0x%08X) - ", code, code);
    for (const ErrorText& known : errorTexts)
        if (known.code == static_cast<DWORD>(code)) return text + known.text;
    return text + "Unknown";
}
