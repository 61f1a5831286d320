// Copy, cut and paste.
#include "corekit/foundation/StringA.h"
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Memory.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace {

constexpr UINT sharedMovable = 0x2002;

void put(UINT format, const void* data, std::size_t size)
{
    const HGLOBAL block = GlobalAlloc(sharedMovable, size);
    if (!block) return;
    std::memcpy(GlobalLock(block), data, size);
    GlobalUnlock(block);
    if (!SetClipboardData(format, block)) GlobalFree(block);
}

// The characters of the clipboard in one format, up to a zero.
template <class Ch>
bool read(UINT format, StringW& text)
{
    const HGLOBAL block = GetClipboardData(format);
    if (!block) return false;
    const auto* const from = static_cast<const Ch*>(GlobalLock(block));
    const std::span<const Ch> all(from, GlobalSize(block) / sizeof(Ch));
    const std::basic_string<Ch> characters(all.begin(), std::ranges::find(all, Ch{}));
    GlobalUnlock(block);
    text = characters.c_str();
    return true;
}

void setClipboardText(HWND window, const StringW& text)
{
    if (!OpenClipboard(window)) return;
    EmptyClipboard();
    const StringA narrow(static_cast<const WCHAR*>(text));
    put(CF_UNICODETEXT, static_cast<const WCHAR*>(text),
        (static_cast<std::size_t>(text.GetLength()) + 1) * sizeof(WCHAR));
    put(CF_TEXT, static_cast<const char*>(narrow), static_cast<std::size_t>(narrow.GetLength()) + 1);
    CloseClipboard();
}

bool getClipboardText(HWND window, StringW& text)
{
    if (!OpenClipboard(window)) return false;
    const bool found = read<WCHAR>(CF_UNICODETEXT, text) || read<char>(CF_TEXT, text);
    CloseClipboard();
    return found;
}

} // namespace

int CMultilineUnicodeEditCtl::CopySelectedText()
{
    LookAround();
    StringW text;
    if (!m_model.GetSelectedText(text)) return 0;
    setClipboardText(m_hWnd, text);
    return 1;
}

void CMultilineUnicodeEditCtl::CopyText(int from, int to)
{
    setClipboardText(m_hWnd, m_model.Text().Mid(from, to - from));
}

void CMultilineUnicodeEditCtl::CutSelectedText()
{
    if (CopySelectedText()) DoDelete();
}

// The scroll bar follows at the next change.
void CMultilineUnicodeEditCtl::PasteText()
{
    StringW text;
    if (!getClipboardText(m_hWnd, text)) return;
    m_model.PasteText(text);
    CursorMoved();
}

void CMultilineUnicodeEditCtl::OnCCopy() { CopySelectedText(); }
void CMultilineUnicodeEditCtl::OnCCut() { CutSelectedText(); }
void CMultilineUnicodeEditCtl::OnCPaste()
{
    LookAround();
    PasteText();
}

// What has been selected here is what the middle button pastes elsewhere.
void CMultilineUnicodeEditCtl::OfferSelection()
{
    StringW text;
    if (m_model.GetSelectedText(text)) SetSelectionText(text, text.GetLength());
}
