#include "corekit/windows/controls/ui/DataExchangeEx.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/Wnd.h"

#include <charconv>
#include <string_view>
#include <vector>

namespace {

CString textOf(HWND control)
{
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    text.TrimLeft();
    text.TrimRight();
    return text;
}

[[noreturn]] void refuse(CDataExchange& exchange, const char* text)
{
    AfxMessageBox(text, MB_ICONEXCLAMATION);
    exchange.Fail();
}

bool readHex(std::string_view digits, UINT& value)
{
    if (digits.starts_with("0x") || digits.starts_with("0X") || digits.starts_with("#"))
        digits.remove_prefix(digits.front() == '#' ? 1 : 2);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return !digits.empty() && read.ec == std::errc() && read.ptr == digits.data() + digits.size();
}

COLORREF turned(UINT colour) { return RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF); }

} // namespace

void DDX_TextW(CDataExchange* exchange, int id, StringW& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        ::SetWindowTextW(control, value);
        return;
    }
    std::vector<WCHAR> text(static_cast<std::size_t>(::GetWindowTextLengthW(control)) + 1);
    const int length = ::GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    value = StringW(text.data(), length);
}

void DDX_Timecode(CDataExchange* exchange, int id, CTimecode& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate)
        ::SetWindowTextA(control, value.MakeString());
    else if (CTimecode read; read.SetFromString(textOf(control)) && read.MakeString() == textOf(control))
        value = read;
    else
        refuse(*exchange, "Please enter a timecode as hours, minutes, seconds and frames, like 10:00:00:00.");
}

void DDX_Hex(CDataExchange* exchange, int id, UINT& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        CString text;
        text.Format("%X", value);
        ::SetWindowTextA(control, text);
    } else if (UINT read = 0; readHex(static_cast<const char*>(textOf(control)), read)) {
        value = read;
    } else {
        refuse(*exchange, "Please enter a hexadecimal number.");
    }
}

void DDX_Colour(CDataExchange* exchange, int id, COLORREF& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        CString text;
        text.Format("%06X", turned(value));
        ::SetWindowTextA(control, text);
    } else if (UINT read = 0; readHex(static_cast<const char*>(textOf(control)), read) && read <= 0xFFFFFF) {
        value = turned(read);
    } else {
        refuse(*exchange, "Please enter a colour as six hexadecimal digits: red, green, blue.");
    }
}
