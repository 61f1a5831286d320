#include "corekit/unicode/ui/fontdialogs/FontFaceList.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <string>

namespace corekit::detail {

namespace {

bool contains(const CStringArray& names, const CString& name)
{
    for (int k = 0; k < names.GetSize(); ++k)
        if (names[k].CompareNoCase(name) == 0) return true;
    return false;
}

LPARAM asParameter(const char* text) { return reinterpret_cast<LPARAM>(text); }

} // namespace

void FontFaceList::fillWithAll(const CStringArray& without)
{
    CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    for (POSITION position = manager.GetFirstFontPosition(); position;)
        if (const CString face = manager.GetNextFont(position); !contains(without, face)) add(face);
}

void FontFaceList::add(const CString& face)
{
    m_dialog.SendDlgItemMessage(facesControl, LB_ADDSTRING, 0, asParameter(face));
}

void FontFaceList::remove(int row)
{
    m_dialog.SendDlgItemMessage(facesControl, LB_DELETESTRING, static_cast<WPARAM>(row));
}

int FontFaceList::count() const
{
    return static_cast<int>(m_dialog.SendDlgItemMessage(facesControl, LB_GETCOUNT));
}

int FontFaceList::selected() const
{
    return static_cast<int>(m_dialog.SendDlgItemMessage(facesControl, LB_GETCURSEL));
}

CString FontFaceList::face(int row) const
{
    const LRESULT length = m_dialog.SendDlgItemMessage(facesControl, LB_GETTEXTLEN, static_cast<WPARAM>(row));
    if (row < 0 || length < 0) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    m_dialog.SendDlgItemMessage(facesControl, LB_GETTEXT, static_cast<WPARAM>(row),
                                reinterpret_cast<LPARAM>(text.data()));
    return text.c_str();
}

void FontFaceList::select(const char* face)
{
    select(static_cast<int>(m_dialog.SendDlgItemMessage(facesControl, LB_FINDSTRINGEXACT,
                                                        static_cast<WPARAM>(-1), asParameter(face))));
}

void FontFaceList::select(int row)
{
    m_dialog.SendDlgItemMessage(facesControl, LB_SETCURSEL, static_cast<WPARAM>(row));
}

} // namespace corekit::detail
