// Controls of a dialog by their numbers.
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Dialogs.h"

#include <charconv>
#include <cstring>
#include <string_view>

LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND control = GetDlgItem(dialog, id);
    return control ? SendMessageA(control, message, wParam, lParam) : 0;
}

BOOL SetDlgItemTextA(HWND dialog, int id, const char* text)
{
    const HWND control = GetDlgItem(dialog, id);
    return control && SetWindowTextA(control, text);
}

UINT GetDlgItemTextA(HWND dialog, int id, char* buffer, int size)
{
    if (!buffer || size <= 0) return 0;
    buffer[0] = 0;
    const HWND control = GetDlgItem(dialog, id);
    return control ? static_cast<UINT>(GetWindowTextA(control, buffer, size)) : 0;
}

BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned)
{
    char text[16]{};
    if (isSigned)
        std::to_chars(text, text + sizeof text - 1, static_cast<int>(value));
    else
        std::to_chars(text, text + sizeof text - 1, value);
    return SetDlgItemTextA(dialog, id, text);
}

UINT GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned)
{
    char buffer[64];
    std::string_view text(buffer, GetDlgItemTextA(dialog, id, buffer, sizeof buffer));
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    int signedValue = 0;
    UINT value = 0;
    const auto read = isSigned ? std::from_chars(text.data(), text.data() + text.size(), signedValue)
                               : std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = !text.empty() && read.ec == std::errc() && read.ptr == text.data() + text.size();
    if (translated) *translated = isNumber;
    if (!isNumber) return 0;
    return isSigned ? static_cast<UINT>(signedValue) : value;
}

BOOL CheckDlgButton(HWND dialog, int id, UINT state)
{
    const HWND button = GetDlgItem(dialog, id);
    if (!button) return FALSE;
    SendMessageA(button, BM_SETCHECK, state, 0);
    return TRUE;
}

UINT IsDlgButtonChecked(HWND dialog, int id)
{
    return static_cast<UINT>(SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL CheckRadioButton(HWND dialog, int first, int last, int checked)
{
    if (checked < first || checked > last) return FALSE;
    for (int id = first; id <= last; ++id)
        CheckDlgButton(dialog, id, id == checked ? BST_CHECKED : BST_UNCHECKED);
    return TRUE;
}
