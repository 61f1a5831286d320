#include "TextDrop.h"

#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Memory.h"
#include "corekit/unicode/codepages/CodePageConversion.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace {

constexpr int utf8 = 0x10002;
constexpr std::size_t longestFile = 1 << 20;

} // namespace

DROPEFFECT TextDrop::EffectOf(const COleDataObject& data)
{
    return data.IsDataAvailable(CF_UNICODETEXT) || data.IsDataAvailable(CF_HDROP) ? DROPEFFECT_COPY
                                                                                  : DROPEFFECT_NONE;
}

BOOL TextDrop::OnDrop(CWnd*, COleDataObject* data, DROPEFFECT, CPoint)
{
    if (const auto files = static_cast<HDROP>(data->GetGlobalData(CF_HDROP))) {
        const bool isShown = Show(files);
        DragFinish(files);
        return isShown;
    }
    const HGLOBAL block = data->GetGlobalData(CF_UNICODETEXT);
    if (!block) return FALSE;
    Insert(static_cast<const WCHAR*>(GlobalLock(block)));
    GlobalUnlock(block);
    GlobalFree(block);
    return TRUE;
}

// The first file, as UTF-8.
bool TextDrop::Show(HDROP files)
{
    std::string name(DragQueryFileA(files, 0, nullptr, 0) + 1, 0);
    DragQueryFileA(files, 0, name.data(), static_cast<UINT>(name.size()));
    std::ifstream file(name.c_str(), std::ios::binary);
    std::string bytes(longestFile, 0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (file.gcount() <= 0) return false;
    StringW text;
    AnsiToUnicode(utf8, text, bytes.data(), static_cast<int>(file.gcount()));
    m_text.SetString(text);
    return true;
}

void TextDrop::Insert(const std::u16string& text)
{
    std::u16string all(static_cast<const WCHAR*>(m_text.GetString()));
    const auto at = static_cast<std::size_t>(std::max(m_text.GetCursorIndex(), 0));
    all.insert(std::min(at, all.size()), text);
    m_text.SetString(all.c_str());
}
