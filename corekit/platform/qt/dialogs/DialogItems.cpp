// Controls of a dialog by their numbers.
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Dialogs.h"

LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND control = GetDlgItem(dialog, id);
    return control ? SendMessageA(control, message, wParam, lParam) : 0;
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
