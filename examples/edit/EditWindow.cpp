#include "EditWindow.h"

#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/Statics.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "examples/shared/Scripts.h"

namespace {

enum : UINT { keyboardLabelId = 100, keyboardsId, faceLabelId, facesId, textId };

constexpr int edge = 12, rowHeight = 28, labelWidth = 76, choiceWidth = 250, listHeight = 400;
constexpr int fontSize = 29;
constexpr const char* firstFace = "Noto Sans";

CUnicodeManager& Manager() { return *CUnicodeManager::GetObjectA(); }

void AddRow(CWnd& choice, const char* text)
{
    choice.SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

} // namespace

BEGIN_MESSAGE_MAP(EditWindow, CWnd)
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_DESTROY()
ON_WM_SYSCOLORCHANGE()
ON_CONTROL(CBN_SELCHANGE, keyboardsId, &EditWindow::OnKeyboardChosen)
ON_CONTROL(CBN_SELCHANGE, facesId, &EditWindow::OnFaceChosen)
END_MESSAGE_MAP()

bool EditWindow::Open()
{
    const char* const windowClass =
        AfxRegisterWndClass(0, nullptr, reinterpret_cast<HBRUSH>(static_cast<LONG_PTR>(COLOR_BTNFACE + 1)));
    if (!CreateEx(0, windowClass, "Writing in any script", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 80, 80, 760,
                  420, nullptr, nullptr))
        return false;
    if (!MakeControls()) return false;
    ListKeyboards();
    ListFaces();
    ShowWindow(SW_SHOW);
    m_text.SetFocus();
    return true;
}

bool EditWindow::MakeControls()
{
    const CRect anywhere(0, 0, 10, 10);
    constexpr DWORD label = WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE;
    constexpr DWORD choice = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    m_text.SetInitialHighlightOff();
    const bool made = m_keyboardLabel.Create("STATIC", "&Keyboard", label, anywhere, this, keyboardLabelId) &&
                      m_keyboards.Create("COMBOBOX", "", choice, anywhere, this, keyboardsId) &&
                      m_faceLabel.Create("STATIC", "&Font", label, anywhere, this, faceLabelId) &&
                      m_faces.Create("COMBOBOX", "", choice, anywhere, this, facesId) &&
                      m_text.Create(this, textId, anywhere) && m_drop.Register(&m_text);
    m_text.SetWindowText("Text"); // seen nowhere, but read out
    CRect client;
    GetClientRect(&client);
    OnSize(0, client.right, client.bottom);
    OnSysColorChange();
    return made;
}

// The text follows the desktop, also to dark and back.
void EditWindow::OnSysColorChange()
{
    UpdateSysColourMetricCache();
    CWnd::OnSysColorChange();
    m_text.SetColours(GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW));
}

void EditWindow::OnSize(UINT how, int width, int height)
{
    CWnd::OnSize(how, width, height);
    if (!m_text.GetSafeHwnd()) return;
    int x = edge;
    const auto place = [&](CWnd& window, int wide, int tall) {
        window.MoveWindow(x, edge, wide, tall);
        x += wide;
    };
    place(m_keyboardLabel, labelWidth, rowHeight);
    place(m_keyboards, choiceWidth, listHeight);
    x += 2 * edge;
    place(m_faceLabel, labelWidth / 2 + edge, rowHeight);
    place(m_faces, choiceWidth, listHeight);
    const int top = 2 * edge + rowHeight;
    m_text.MoveWindow(edge, top, width - 2 * edge, height - top - edge);
}

void EditWindow::OnSetFocus(CWnd* before)
{
    CWnd::OnSetFocus(before);
    m_text.SetFocus();
}

void EditWindow::OnDestroy()
{
    CWnd::OnDestroy();
    PostQuitMessage(0);
}

// Keys may have switched the keyboard: Ctrl+Alt and an arrow key.
BOOL EditWindow::PreTranslateMessage(MSG* message)
{
    if (Manager().GetActiveKeyboard() != m_shownKeyboard) ShowKeyboard();
    return CWnd::PreTranslateMessage(message);
}

void EditWindow::ListKeyboards()
{
    for (int i = 0; i < Manager().GetKeyboardCount(); ++i) {
        CString name;
        WORD locale = 0;
        Manager().GetKeyboardInfo(i, name, locale);
        AddRow(m_keyboards, name);
    }
    ShowKeyboard();
}

void EditWindow::ShowKeyboard()
{
    m_shownKeyboard = Manager().GetActiveKeyboard();
    m_keyboards.SendMessage(CB_SETCURSEL, static_cast<WPARAM>(m_shownKeyboard));
}

bool EditWindow::UseKeyboard(const std::string& name)
{
    for (int i = 0; i < Manager().GetKeyboardCount(); ++i) {
        CString other;
        WORD locale = 0;
        Manager().GetKeyboardInfo(i, other, locale);
        if (std::string(other).starts_with(name)) {
            const bool used = Manager().ActivateKeyboard(i, FALSE);
            ShowKeyboard();
            return used;
        }
    }
    return false;
}

void EditWindow::OnKeyboardChosen()
{
    Manager().ActivateKeyboard(static_cast<int>(m_keyboards.SendMessage(CB_GETCURSEL)), FALSE);
    ShowKeyboard();
    m_text.SetFocus();
}

void EditWindow::ListFaces()
{
    for (const std::string& face : FacesOfTheMachine()) AddRow(m_faces, face.c_str());
    m_faces.SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(firstFace));
    OnFaceChosen();
}

void EditWindow::OnFaceChosen()
{
    CString face;
    m_faces.GetWindowText(face);
    m_text.SetFontData(FontWithAllScripts(std::string(face), fontSize).GetCombinedString(), 0, 0);
    m_text.SetFocus();
}
