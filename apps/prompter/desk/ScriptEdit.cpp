#include "desk/ScriptEdit.h"

#include "desk/EditedStory.h"

#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/ScrollBars.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

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
constexpr std::size_t longestTypedLine = 65536; // units, beyond which typing would wait for the line

bool IsLow(WCHAR c) { return (c & 0xFC00) == 0xDC00; }

// Of the scripts whose stored letters depend on those around them (Devanagari, Bengali, Tamil), or their
// glyph.
bool IsIndic(UINT c)
{
    return (c >= 0x0900 && c < 0x0A00) || (c >= 0x0B80 && c < 0x0C00) || (c >= 0xE000 && c < 0xE300);
}

std::size_t SameHead(std::u16string_view a, std::u16string_view b)
{
    return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

std::size_t SameTail(std::u16string_view a, std::u16string_view b)
{
    const auto differs = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
    return static_cast<std::size_t>(differs.first - a.rbegin());
}

std::u16string Stored(const std::u16string& plain) { return std::u16string(ViewOf(StoredOf(plain))); }

struct Spelling {
    std::u16string text;
    std::size_t cursor;
};

// What has come stands between stored text, with the cursor behind it. In front of a word it joins its
// letters for as long as nothing parts them; the cursor keeps them apart, or it would have no place.
Spelling WithStored(std::u16string_view before, std::u16string_view came, std::u16string_view behind)
{
    const std::u16string plainHead = PlainOf(before) + std::u16string(came), plainTail = PlainOf(behind);
    std::u16string now = Stored(plainHead + plainTail), head = Stored(plainHead);
    const std::u16string tail = Stored(plainTail);
    if (now.ends_with(tail)) return {now, now.size() - tail.size()};
    if (now.starts_with(head)) return {now, head.size()};
    return {head + tail, head.size()};
}

} // namespace

// Cut, copy and paste would be the control's before they are keys.
BOOL ScriptEdit::PreTranslateMessage(MSG* message)
{
    const bool isKey = message->hwnd == m_hWnd && message->message == WM_KEYDOWN && IsHeld(VK_CONTROL);
    if (isKey && TakeKey(static_cast<UINT>(message->wParam))) return TRUE;
    // Keyboards of ours send their characters past this.
    m_isFromPlatform = message->hwnd == m_hWnd && message->message == WM_CHAR;
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
    const bool isFromPlatform = std::exchange(m_isFromPlatform, false);
    CMultilineUnicodeEditCtl::OnChar(character, repeat, flags);
    const int cursor = GetCursorIndex();
    const StringW& text = GetModel().Text();
    if (isFromPlatform && cursor > 0 && text.GetAt(cursor - 1) == unit &&
        (IsIndic(unit) || IsIndic(text.GetAt(cursor - 2)) || IsIndic(text.GetAt(cursor))))
        Store(cursor - 1, cursor);
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
    const bool isPair = index > 1 && IsLow(GetModel().Text()[index - 1]); // a copy would cost the edit one
    Replace(index - (isPair ? 2 : 1), index, u"");
}

void ScriptEdit::Paste()
{
    RemoveSelection();
    const int index = GetCursorIndex(), length = GetString().GetLength();
    OnCPaste();
    const int behind = index + GetString().GetLength() - length;
    Select(behind, behind);
    if (behind > index) Store(index, behind);
}

// What has come between these indexes, and its lines with it, as it is stored.
void ScriptEdit::Store(int from, int to)
{
    const std::u16string_view text = ViewOf(GetModel().Text());
    const auto start = static_cast<std::size_t>(from), end = static_cast<std::size_t>(to);
    const std::size_t first = start == 0 ? 0 : text.rfind(u'\n', start - 1) + 1; // npos + 1 is 0
    const std::size_t last = std::min(text.find(u'\n', end), text.size());
    if (to - from == 1 && last - first > longestTypedLine) return;
    const std::u16string was(text.substr(first, last - first));
    const auto [now, cursor] = WithStored(text.substr(first, start - first), text.substr(start, end - start),
                                          text.substr(end, last - end));
    if (now == was) return;
    const std::size_t head = SameHead(was, now), tail = SameTail(std::u16string_view(was).substr(head),
                                                                 std::u16string_view(now).substr(head));
    const StringW middle(now.data() + head, static_cast<int>(now.size() - head - tail));
    Respell(static_cast<int>(first + head), static_cast<int>(last - tail), middle,
            static_cast<int>(first + cursor));
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
