#include "corekit/commands/ui/CustomMessageBox.h"

#include "corekit/commands/ui/HostTitle.h"
#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/ui/DataExchange.h"
#include "corekit/platform/Statics.h"
#include "corekit/resources/dialogs/CustomMessages.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(DLG_CustomMsg2, CDialog)
IMPLEMENT_DYNAMIC(DLG_CustomMsg3, CDialog)
IMPLEMENT_DYNAMIC(DLG_CustomMsg3Wide, CDialog)
IMPLEMENT_DYNAMIC(DLG_CustomMsg4, CDialog)
IMPLEMENT_DYNAMIC(DLG_CustomMsg5, CDialog)

namespace corekit::detail {

namespace {
constexpr int textControl = 1016, iconControl = 1021;
constexpr int buttonIds[] = {1014, 1015, 1017, 1019, 1020};
} // namespace

CustomMessage::CustomMessage(UINT templateId, CWnd* parent, const char* text, HICON icon,
                             std::span<const int> ids, std::span<const char* const> buttons)
    : CDialog(templateId, parent), m_buttonIds(ids), m_text(text), m_icon(icon)
{
    std::ranges::copy(buttons, m_buttons.begin());
}

void CustomMessage::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Text(exchange, textControl, m_text);
}

BOOL CustomMessage::OnInitDialog()
{
    CDialog::OnInitDialog();
    SetWindowText(HostTitle());
    for (std::size_t k = 0; k < m_buttonIds.size(); ++k) SetDlgItemText(m_buttonIds[k], m_buttons[k]);
    if (m_icon) SendDlgItemMessage(iconControl, STM_SETICON, reinterpret_cast<WPARAM>(m_icon));
    return TRUE;
}

BOOL CustomMessage::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const auto pressed = std::ranges::find(m_buttonIds, static_cast<int>(LOWORD(wParam)));
    if (pressed == m_buttonIds.end() || HIWORD(wParam) != BN_CLICKED)
        return CDialog::OnCommand(wParam, lParam);
    m_result = static_cast<int>(pressed - m_buttonIds.begin());
    EndDialog(1);
    return TRUE;
}

} // namespace corekit::detail

using namespace corekit::detail;

DLG_CustomMsg2::DLG_CustomMsg2(CWnd* parent, const char* text, HICON icon,
                               std::span<const char* const, 2> buttons)
    : CustomMessage(dialogs::customMessage2.id, parent, text, icon, std::span(buttonIds).first(2), buttons)
{
}
DLG_CustomMsg3::DLG_CustomMsg3(CWnd* parent, const char* text, HICON icon,
                               std::span<const char* const, 3> buttons)
    : CustomMessage(dialogs::customMessage3.id, parent, text, icon, std::span(buttonIds).first(3), buttons)
{
}
DLG_CustomMsg3Wide::DLG_CustomMsg3Wide(CWnd* parent, const char* text, HICON icon,
                                       std::span<const char* const, 3> buttons)
    : CustomMessage(dialogs::customMessage3Wide.id, parent, text, icon, std::span(buttonIds).first(3),
                    buttons)
{
}
DLG_CustomMsg4::DLG_CustomMsg4(CWnd* parent, const char* text, HICON icon,
                               std::span<const char* const, 4> buttons)
    : CustomMessage(dialogs::customMessage4.id, parent, text, icon, std::span(buttonIds).first(4), buttons)
{
}
DLG_CustomMsg5::DLG_CustomMsg5(CWnd* parent, const char* text, HICON icon,
                               std::span<const char* const, 5> buttons)
    : CustomMessage(dialogs::customMessage5.id, parent, text, icon, buttonIds, buttons)
{
}

namespace {

template <class Dialog, std::size_t count>
int ask(CWnd* parent, const char* text, HICON icon, const char* const (&buttons)[count])
{
    Dialog dialog(parent, text, icon, buttons);
    dialog.DoModal();
    return dialog.Result();
}

// Keeps the texts of the numbers while a box is up.
template <class... Ids>
int askByNumber(CWnd* parent, const char* text, HICON icon, Ids... ids)
{
    return CustomMessageBox(parent, text, icon, static_cast<const char*>(LoadResourceString(ids))...);
}

} // namespace

int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2)
{
    return ask<DLG_CustomMsg2>(parent, text, icon, {b1, b2});
}
int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2,
                     const char* b3)
{
    return ask<DLG_CustomMsg3>(parent, text, icon, {b1, b2, b3});
}
int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2,
                     const char* b3, const char* b4)
{
    return ask<DLG_CustomMsg4>(parent, text, icon, {b1, b2, b3, b4});
}
int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2,
                     const char* b3, const char* b4, const char* b5)
{
    return ask<DLG_CustomMsg5>(parent, text, icon, {b1, b2, b3, b4, b5});
}
int CustomMessageBoxWide(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2,
                         const char* b3)
{
    return ask<DLG_CustomMsg3Wide>(parent, text, icon, {b1, b2, b3});
}

int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2)
{
    return askByNumber(parent, text, icon, b1, b2);
}
int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3)
{
    return askByNumber(parent, text, icon, b1, b2, b3);
}
int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3, UINT b4)
{
    return askByNumber(parent, text, icon, b1, b2, b3, b4);
}
int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3, UINT b4, UINT b5)
{
    return askByNumber(parent, text, icon, b1, b2, b3, b4, b5);
}
int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2)
{
    return askByNumber(parent, LoadResourceString(text), icon, b1, b2);
}
int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3)
{
    return askByNumber(parent, LoadResourceString(text), icon, b1, b2, b3);
}
int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3, UINT b4)
{
    return askByNumber(parent, LoadResourceString(text), icon, b1, b2, b3, b4);
}
int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3, UINT b4, UINT b5)
{
    return askByNumber(parent, LoadResourceString(text), icon, b1, b2, b3, b4, b5);
}
int CustomMessageBoxWide(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3)
{
    return CustomMessageBoxWide(parent, text, icon, LoadResourceString(b1), LoadResourceString(b2),
                                LoadResourceString(b3));
}
int CustomMessageBoxWide(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3)
{
    return CustomMessageBoxWide(parent, LoadResourceString(text), icon, b1, b2, b3);
}
