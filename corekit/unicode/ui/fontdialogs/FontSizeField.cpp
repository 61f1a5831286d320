#include "corekit/unicode/ui/fontdialogs/FontSizeField.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/UpDowns.h"

#include <algorithm>
#include <cstdlib>

namespace corekit::detail {

namespace {

constexpr int smallest = 1, largestByArrows = 200, mostDigits = 3;

CString asText(int number)
{
    CString text;
    text.Format("%d", number);
    return text;
}

} // namespace

std::vector<int> sizesAround(int size)
{
    int step = std::clamp(size / 4, 1, 10), start = size - 3 * step;
    if (start < smallest) start = step = 1;
    std::vector<int> sizes;
    for (int k = 0; k < 7; ++k) sizes.push_back(start + k * step);
    return sizes;
}

HWND FontSizeField::control(int id) const { return ::GetDlgItem(m_dialog.m_hWnd, id); }

void FontSizeField::begin(int size)
{
    SendMessageA(control(sizeArrowsControl), UDM_SETRANGE32, smallest, largestByArrows);
    show(std::max(size, smallest));
    fillList();
}

void FontSizeField::enable(bool isEnabled)
{
    for (const int id : {sizeControl, sizeArrowsControl}) ::EnableWindow(control(id), isEnabled);
}

int FontSizeField::size() const
{
    CString text;
    CWnd::FromHandle(control(sizeControl))->GetWindowText(text);
    return std::max(std::atoi(text), smallest);
}

void FontSizeField::show(int size)
{
    SetWindowTextA(control(sizeControl), asText(size));
    SendMessageA(control(sizeArrowsControl), UDM_SETPOS32, 0, size);
}

void FontSizeField::fillList()
{
    const HWND list = control(sizeControl);
    const int now = size();
    SendMessageA(list, CB_RESETCONTENT, 0, 0);
    for (const int one : sizesAround(now)) {
        const CString text = asText(one);
        SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(static_cast<const char*>(text)));
    }
    SetWindowTextA(list, asText(now));
}

void FontSizeField::edited()
{
    const HWND field = control(sizeControl);
    CString text, kept;
    CWnd::FromHandle(field)->GetWindowText(text);
    for (int k = 0; k < text.GetLength() && kept.GetLength() < mostDigits; ++k)
        if (text[k] >= '0' && text[k] <= '9') kept += text[k];
    if (kept != text) {
        SetWindowTextA(field, kept);
        SendMessageA(field, CB_SETEDITSEL, 0, MAKELONG(static_cast<WORD>(kept.GetLength()), 0xFFFF));
    }
    SendMessageA(control(sizeArrowsControl), UDM_SETPOS32, 0, size());
}

void FontSizeField::picked()
{
    const HWND list = control(sizeControl);
    const LRESULT row = SendMessageA(list, CB_GETCURSEL, 0, 0);
    char text[16] = "";
    if (row >= 0 && SendMessageA(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(row), 0) < 16 &&
        SendMessageA(list, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text)) > 0)
        show(std::atoi(text));
}

void FontSizeField::arrowPressed()
{
    show(static_cast<int>(SendMessageA(control(sizeArrowsControl), UDM_GETPOS32, 0, 0)));
}

} // namespace corekit::detail
