#include "desk/KeyboardsDialog.h"

#include "desk/SettingsDialogs.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include "KeyboardPicture.h"

#include <algorithm>
#include <utility>

namespace prompter {

IMPLEMENT_DYNAMIC(KeyboardsDialog, CDialog)

BEGIN_MESSAGE_MAP(KeyboardsDialog, CDialog)
ON_CONTROL(LBN_SELCHANGE, keyboardList, &KeyboardsDialog::OnPick)
END_MESSAGE_MAP()

namespace {

// The picture as large as fits into the room, on the dialog's ground.
HBITMAP PictureOf(CKBLayout& keyboard, SIZE room)
{
    const Board& board = BoardNamed("uk");
    const auto views = ViewsOf(keyboard, board);
    const auto drawn = DrawKeyboard(static_cast<const char*>(keyboard.GetName()), board, views);
    const SIZE whole = drawn->Size();
    const double scale =
        std::min(static_cast<double>(room.cx) / whole.cx, static_cast<double>(room.cy) / whole.cy);
    const int width = static_cast<int>(whole.cx * scale), height = static_cast<int>(whole.cy * scale);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP picture = CreateCompatibleBitmap(dc, room.cx, room.cy);
    const HGDIOBJ before = SelectObject(dc, picture);
    const RECT all{0, 0, room.cx, room.cy};
    FillRect(dc, &all, GetSysColorBrush(COLOR_BTNFACE));
    SetStretchBltMode(dc, HALFTONE);
    StretchBlt(dc, 0, 0, width, height, drawn->Context(), 0, 0, whole.cx, whole.cy, SRCCOPY);
    SelectObject(dc, before);
    DeleteDC(dc);
    return picture;
}

} // namespace

KeyboardsDialog::KeyboardsDialog(CWnd* parent) : CDialog(dialogs::keyboardsId, parent) {}

KeyboardsDialog::~KeyboardsDialog()
{
    if (m_picture) DeleteObject(m_picture);
}

BOOL KeyboardsDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    const CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    for (int i = 0; i < manager.GetKeyboardCount(); ++i) {
        CKBLayout* const keyboard = manager.GetKeyboard(i);
        if (!keyboard->IsEnabled()) continue;
        const CString name = keyboard->GetName();
        SendDlgItemMessage(keyboardList, LB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(static_cast<const char*>(name)));
        m_keyboards.push_back(i);
    }
    const auto active = std::ranges::find(m_keyboards, manager.GetActiveKeyboard());
    const auto row = active == m_keyboards.end() ? 0 : active - m_keyboards.begin();
    SendDlgItemMessage(keyboardList, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    ShowPicture();
    return TRUE;
}

int KeyboardsDialog::PickedKeyboard() const
{
    const auto row = static_cast<std::size_t>(SendDlgItemMessage(keyboardList, LB_GETCURSEL, 0, 0));
    return row < m_keyboards.size() ? m_keyboards[row] : -1;
}

void KeyboardsDialog::ShowPicture()
{
    CKBLayout* const keyboard = CUnicodeManager::GetObjectA()->GetKeyboard(PickedKeyboard());
    if (!keyboard) return;
    CRect room;
    GetDlgItem(keyboardPicture)->GetClientRect(&room);
    const HBITMAP before = std::exchange(m_picture, PictureOf(*keyboard, room.Size()));
    SendDlgItemMessage(keyboardPicture, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(m_picture));
    if (before) DeleteObject(before);
}

void KeyboardsDialog::OnPick() { ShowPicture(); }

void KeyboardsDialog::OnOK()
{
    if (const int picked = PickedKeyboard(); picked >= 0)
        CUnicodeManager::GetObjectA()->ActivateKeyboard(picked, FALSE);
    CDialog::OnOK();
}

} // namespace prompter
