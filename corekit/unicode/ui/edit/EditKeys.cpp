// Keys: what each does, and the road of a message before it is one.
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtlSink.h"
#include "corekit/unicode/ui/keyboards/HeldKeys.h"
#include "corekit/unicode/ui/UnicodeManager.h"

using namespace corekit::detail;

// The first row counts whose key is pressed with the key that it wants held.
struct CMultilineUnicodeEditCtl::KeyRow {
    UINT key;
    int held; // 0: whatever is held
    Action action;
};

// The codes of small letters belong to other keys: 1, 3 on the number pad, F7, F9, F11.
const CMultilineUnicodeEditCtl::KeyRow CMultilineUnicodeEditCtl::keyRows[] = {
    {VK_BACK, VK_MENU, &CMultilineUnicodeEditCtl::UndoChanges},
    {VK_BACK, 0, &CMultilineUnicodeEditCtl::DoBackspace},
    {VK_TAB, 0, &CMultilineUnicodeEditCtl::TellTab},
    {VK_RETURN, VK_SHIFT, &CMultilineUnicodeEditCtl::OnSoftReturn},
    {VK_RETURN, VK_CONTROL, &CMultilineUnicodeEditCtl::OnHardReturn},
    {VK_RETURN, 0, &CMultilineUnicodeEditCtl::TellReturn},
    {VK_ESCAPE, 0, &CMultilineUnicodeEditCtl::TellEscape},
    {VK_END, 0, &CMultilineUnicodeEditCtl::DoCursorEndKey},
    {VK_HOME, 0, &CMultilineUnicodeEditCtl::DoCursorHome},
    {VK_LEFT, 0, &CMultilineUnicodeEditCtl::DoCursorLeft},
    {VK_UP, 0, &CMultilineUnicodeEditCtl::DoCursorUp},
    {VK_RIGHT, 0, &CMultilineUnicodeEditCtl::DoCursorRight},
    {VK_DOWN, 0, &CMultilineUnicodeEditCtl::DoCursorDown},
    {VK_INSERT, VK_CONTROL, &CMultilineUnicodeEditCtl::CopyKey},
    {VK_INSERT, VK_SHIFT, &CMultilineUnicodeEditCtl::PasteText},
    {VK_INSERT, 0, &CMultilineUnicodeEditCtl::IgnoreKey},
    {VK_DELETE, VK_SHIFT, &CMultilineUnicodeEditCtl::CutSelectedText},
    {VK_DELETE, 0, &CMultilineUnicodeEditCtl::DoDelete},
    {'A', VK_CONTROL, &CMultilineUnicodeEditCtl::SelectAllText},
    {'a', VK_CONTROL, &CMultilineUnicodeEditCtl::SelectAllText},
    {'C', VK_CONTROL, &CMultilineUnicodeEditCtl::CopyKey},
    {'c', VK_CONTROL, &CMultilineUnicodeEditCtl::CopyKey},
    {'V', VK_CONTROL, &CMultilineUnicodeEditCtl::PasteText},
    {'v', VK_CONTROL, &CMultilineUnicodeEditCtl::PasteText},
    {'X', VK_CONTROL, &CMultilineUnicodeEditCtl::CutSelectedText},
    {'x', VK_CONTROL, &CMultilineUnicodeEditCtl::CutSelectedText},
    {'Z', VK_CONTROL, &CMultilineUnicodeEditCtl::UndoChanges},
    {'z', VK_CONTROL, &CMultilineUnicodeEditCtl::UndoChanges},
};

namespace {

HeldModifiers held() { return {isKeyDown(VK_SHIFT), isKeyDown(VK_CONTROL)}; }

} // namespace

BOOL CMultilineUnicodeEditCtl::PreTranslateMessage(MSG* message)
{
    if (m_manager && m_manager->TranslateMessageHook(message)) return TRUE;
    if (m_accelerators && message->hwnd == m_hWnd && TranslateAcceleratorA(m_hWnd, m_accelerators, message))
        return TRUE;
    return CWnd::PreTranslateMessage(message);
}

bool CMultilineUnicodeEditCtl::RunKey(UINT key)
{
    for (const KeyRow& row : keyRows)
        if (row.key == key && (row.held == 0 || isKeyDown(row.held))) {
            LookAround();
            (this->*row.action)(); // which may be the end of this window
            return true;
        }
    return false;
}

void CMultilineUnicodeEditCtl::OnKeyDown(UINT key, UINT, UINT)
{
    if (RunKey(key)) return;
    if (key >= 32 && key != 127 && m_model.HasSelection()) DoDelete();
    Default();
}

void CMultilineUnicodeEditCtl::OnSysKeyDown(UINT key, UINT, UINT)
{
    if (key == VK_BACK)
        UndoChanges();
    else
        Default();
}

void CMultilineUnicodeEditCtl::OnChar(UINT character, UINT, UINT)
{
    LookAround();
    m_model.OnChar(m_manager->ConvertCharMessage(character));
    TextChanged();
}

void CMultilineUnicodeEditCtl::DoBackspace()
{
    m_model.DoBackspace();
    TextChanged();
}

void CMultilineUnicodeEditCtl::DoDelete()
{
    m_model.DoDelete();
    TextChanged();
}

void CMultilineUnicodeEditCtl::OnSoftReturn()
{
    m_model.OnSoftReturn();
    TextChanged();
}

void CMultilineUnicodeEditCtl::OnHardReturn()
{
    m_model.OnHardReturn();
    TextChanged();
}

void CMultilineUnicodeEditCtl::UndoChanges()
{
    m_model.UndoChanges();
    TextChanged();
}

void CMultilineUnicodeEditCtl::SelectAllText()
{
    m_model.SelectAll();
    CursorMoved();
    OfferSelection();
}

// ---- By index

void CMultilineUnicodeEditCtl::GetSelection(int& from, int& to)
{
    from = to = m_model.CursorIndex();
    if (!m_model.HasSelection()) return;
    from = m_model.IndexOf(std::min(m_model.Anchor(), m_model.SelectionEnd()));
    to = m_model.IndexOf(std::max(m_model.Anchor(), m_model.SelectionEnd()));
}

int CMultilineUnicodeEditCtl::GetCursorIndex() { return m_model.CursorIndex(); }

void CMultilineUnicodeEditCtl::Select(int from, int to)
{
    m_model.Select(from, to);
    CursorMoved();
}

void CMultilineUnicodeEditCtl::Replace(int from, int to, const WCHAR* text)
{
    m_model.ReplaceRange(from, to, text);
    TextChanged();
}

void CMultilineUnicodeEditCtl::Respell(int from, int to, const StringW& text, int cursor)
{
    m_model.Respell(from, to, {text, static_cast<std::size_t>(text.GetLength())}, cursor);
    TextChanged();
}

bool CMultilineUnicodeEditCtl::TakeChange(int& from, int& removed, int& added)
{
    TextChange change;
    const bool isThere = m_model.TakeChange(change);
    from = change.from;
    removed = change.removed;
    added = change.added;
    return isThere;
}

// ---- The cursor

void CMultilineUnicodeEditCtl::DoCursorLeft()
{
    if (m_manager->IsLocaleRTL(m_manager->GetCurrentKeyboardLocale()))
        m_model.MoveCursorRight(held());
    else
        m_model.MoveCursorLeft(held());
    CursorMoved();
    OfferSelection();
}

void CMultilineUnicodeEditCtl::DoCursorRight()
{
    if (m_manager->IsLocaleRTL(m_manager->GetCurrentKeyboardLocale()))
        m_model.MoveCursorLeft(held());
    else
        m_model.MoveCursorRight(held());
    CursorMoved();
    OfferSelection();
}

void CMultilineUnicodeEditCtl::DoCursorHome()
{
    m_model.DoCursorHome(held());
    CursorMoved();
    OfferSelection();
}

void CMultilineUnicodeEditCtl::DoCursorEnd(int toEnd)
{
    HeldModifiers with = held();
    with.control |= toEnd != 0;
    m_model.DoCursorEnd(with);
    CursorMoved();
    OfferSelection();
}

void CMultilineUnicodeEditCtl::MoveCursorToEnd()
{
    LookAround();
    DoCursorEnd(1);
}

void CMultilineUnicodeEditCtl::DoCursorUp()
{
    if (!m_model.DoCursorUp(held())) {
        if (m_sink) m_sink->OnEditCursorUp();
        return;
    }
    CursorMoved();
    OfferSelection();
}

void CMultilineUnicodeEditCtl::DoCursorDown()
{
    if (!m_model.DoCursorDown(held())) {
        if (m_sink) m_sink->OnEditCursorDown();
        return;
    }
    CursorMoved();
    OfferSelection();
}

// ---- What only the sink wants

void CMultilineUnicodeEditCtl::TellReturn()
{
    if (m_sink) m_sink->OnEditReturn();
}

void CMultilineUnicodeEditCtl::TellEscape()
{
    if (m_sink) m_sink->OnEditEscape();
}

void CMultilineUnicodeEditCtl::TellTab()
{
    if (m_sink) m_sink->OnEditTab(isKeyDown(VK_SHIFT) ? 1 : 0);
}
