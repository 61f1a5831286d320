#include "desk/ScriptEdit.h"

#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/ScrollBars.h"

#include <algorithm>
#include <cstdlib>

namespace prompter {

IMPLEMENT_DYNAMIC(ScriptEdit, CMultilineUnicodeEditCtl)

BEGIN_MESSAGE_MAP(ScriptEdit, CMultilineUnicodeEditCtl)
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

namespace {

constexpr int notch = 120, linesOfANotch = 3;
constexpr UINT firstVisible = 32, deleted = 127, unitBits = 0xFFFF;

bool IsHeld(int key) { return GetKeyState(key) < 0; }
bool IsLow(WCHAR c) { return (c & 0xFC00) == 0xDC00; }

} // namespace

// Cut, copy and paste would be the control's before they are keys.
BOOL ScriptEdit::PreTranslateMessage(MSG* message)
{
    const bool isKey = message->hwnd == m_hWnd && message->message == WM_KEYDOWN && IsHeld(VK_CONTROL);
    if (isKey && TakeKey(static_cast<UINT>(message->wParam))) return TRUE;
    return CMultilineUnicodeEditCtl::PreTranslateMessage(message);
}

void ScriptEdit::OnKeyDown(UINT key, UINT repeat, UINT flags)
{
    if (TakeKey(key)) return;
    const bool moves =
        (static_cast<int>(key) >= VK_END && static_cast<int>(key) <= VK_DOWN) || IsHeld(VK_CONTROL);
    // A key that is no character's must not cost the selection.
    if (moves || !GetModel().HasSelection())
        CMultilineUnicodeEditCtl::OnKeyDown(key, repeat, flags);
    else
        Default();
}

void ScriptEdit::MoveByPage(UINT key)
{
    CRect client;
    GetClientRect(&client);
    for (int i = std::max(client.Height() / std::max(GetTextHeight(), 1) - 1, 1); i > 0; --i)
        CMultilineUnicodeEditCtl::OnKeyDown(key, 1, 0);
}

bool ScriptEdit::TakeKey(UINT key)
{
    const bool shift = IsHeld(VK_SHIFT), control = IsHeld(VK_CONTROL);
    int from = 0, to = 0;
    GetSelection(from, to);
    switch (static_cast<int>(key)) {
    case VK_PRIOR:
    case VK_NEXT:
        MoveByPage(static_cast<int>(key) == VK_PRIOR ? VK_UP : VK_DOWN);
        return true;
    case VK_RETURN:
        Replace(from, to, u"\n");
        return true;
    case VK_BACK:
        if (!RemoveSelection()) RemoveBefore();
        return true;
    case VK_DELETE:
        if (shift && CopySelection()) return RemoveSelection();
        return RemoveSelection();
    case VK_INSERT:
        if (control) return CopySelection();
        if (shift) Paste();
        return shift;
    case 'C':
        return control && CopySelection();
    case 'X':
        return control && CopySelection() && RemoveSelection();
    case 'V':
        if (control) Paste();
        return control;
    default:
        if (shift && from == to) Select(from, from); // what is selected now begins here
        return false;
    }
}

void ScriptEdit::OnChar(UINT character, UINT repeat, UINT flags)
{
    const UINT unit = character & unitBits;
    if (unit >= firstVisible && unit != deleted) RemoveSelection();
    CMultilineUnicodeEditCtl::OnChar(character, repeat, flags);
}

bool ScriptEdit::RemoveSelection()
{
    int from = 0, to = 0;
    GetSelection(from, to);
    if (from == to) return false;
    Replace(from, to, u"");
    return true;
}

bool ScriptEdit::CopySelection()
{
    int from = 0, to = 0;
    GetSelection(from, to);
    if (from == to) return false;
    CopyText(from, to);
    return true;
}

void ScriptEdit::RemoveBefore()
{
    const int index = GetCursorIndex();
    if (index <= 0) return;
    const StringW text = GetString();
    const bool isPair = index > 1 && IsLow(text[index - 1]);
    Replace(index - (isPair ? 2 : 1), index, u"");
}

void ScriptEdit::Paste()
{
    RemoveSelection();
    const int index = GetCursorIndex(), length = GetString().GetLength();
    OnCPaste();
    const int behind = index + GetString().GetLength() - length;
    Select(behind, behind);
}

// The second of two presses selects the word between blanks.
void ScriptEdit::OnLButtonDown(UINT flags, CPoint point)
{
    CMultilineUnicodeEditCtl::OnLButtonDown(flags, point);
    if (GetModel().HasSelection())
        SelectWord(m_pressed);
    else
        m_pressed = GetCursorIndex();
}

void ScriptEdit::SelectWord(int index)
{
    const StringW text = GetString();
    const auto isBlank = [&](int at) { return text[at] == u' ' || text[at] == u'\n'; };
    int from = std::clamp(index, 0, text.GetLength()), to = from;
    while (from > 0 && !isBlank(from - 1)) --from;
    while (to < text.GetLength() && !isBlank(to)) ++to;
    Select(from, to);
}

// What has been selected here is what the middle button pastes elsewhere.
void ScriptEdit::OnLButtonUp(UINT flags, CPoint point)
{
    CMultilineUnicodeEditCtl::OnLButtonUp(flags, point);
    int from = 0, to = 0;
    GetSelection(from, to);
    if (from != to) SetSelectionText(GetString().Mid(from, to - from), to - from);
}

BOOL ScriptEdit::OnMouseWheel(UINT, short delta, CPoint)
{
    m_wheel += delta;
    const int lines = m_wheel / notch * linesOfANotch;
    m_wheel %= notch;
    for (int i = std::abs(lines); i > 0; --i) SendMessage(WM_VSCROLL, lines > 0 ? SB_LINEUP : SB_LINEDOWN);
    return TRUE;
}

} // namespace prompter
