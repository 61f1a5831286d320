#include "corekit/unicode/ui/fontdialogs/DLG_FD_Multiple.h"

#include "corekit/resources/dialogs/Fonts.h"
#include "corekit/unicode/ui/fontdialogs/DLG_FD_AddFont.h"
#include "corekit/unicode/ui/fontdialogs/FontFaceList.h"
#include "corekit/unicode/ui/fontdialogs/FontSizeField.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(DLG_FD_Multiple, CDialog)

using namespace corekit::detail;

namespace {
constexpr int addControl = 1007, removeControl = 1008;
constexpr int mostFaces = 16; // what CUniRender takes
} // namespace

BEGIN_MESSAGE_MAP(DLG_FD_Multiple, CDialog)
ON_BN_CLICKED(addControl, &DLG_FD_Multiple::OnAdd)
ON_BN_CLICKED(removeControl, &DLG_FD_Multiple::OnRemove)
ON_LBN_SELCHANGE(facesControl, &DLG_FD_Multiple::UpdateButtons)
ON_CBN_SELCHANGE(sizeControl, &DLG_FD_Multiple::OnSizePicked)
ON_CBN_EDITCHANGE(sizeControl, &DLG_FD_Multiple::OnSizeEdited)
ON_CBN_DROPDOWN(sizeControl, &DLG_FD_Multiple::OnSizeDropDown)
ON_WM_VSCROLL()
END_MESSAGE_MAP()

DLG_FD_Multiple::DLG_FD_Multiple(CWnd* parent, CFontDescriptor& font, int readOnly)
    : CDialog(dialogs::selectFonts.id, parent), m_font(&font), m_readOnly(readOnly)
{
}

BOOL DLG_FD_Multiple::OnInitDialog()
{
    CDialog::OnInitDialog();
    FontFaceList faces(*this);
    for (int k = 0; k < m_font->GetCount(); ++k) faces.add(m_font->GetFont(k));
    FontSizeField size(*this);
    size.begin(m_font->GetSize());
    if (m_readOnly) size.enable(false);
    UpdateButtons();
    return TRUE;
}

void DLG_FD_Multiple::UpdateButtons()
{
    const FontFaceList faces(*this);
    if (CWnd* const add = GetDlgItem(addControl)) add->EnableWindow(!m_readOnly && faces.count() < mostFaces);
    if (CWnd* const remove = GetDlgItem(removeControl))
        remove->EnableWindow(!m_readOnly && faces.selected() >= 0 && faces.count() >= 2);
}

void DLG_FD_Multiple::OnOK()
{
    if (m_readOnly) return CDialog::OnOK();
    const FontFaceList faces(*this);
    const int size = FontSizeField(*this).size(), count = faces.count();
    m_font->Empty();
    for (int k = 0; k < count; ++k) m_font->AddFont(faces.face(k));
    m_font->SetSize(size);
    CDialog::OnOK();
}

void DLG_FD_Multiple::OnAdd()
{
    FontFaceList faces(*this);
    CStringArray chosen;
    for (int k = 0; k < faces.count(); ++k) chosen.Add(faces.face(k));
    DLG_FD_AddFont dialog(this, chosen);
    if (dialog.DoModal() != IDOK) return;
    faces.add(dialog.GetFace());
    faces.select(faces.count() - 1);
    UpdateButtons();
}

void DLG_FD_Multiple::OnRemove()
{
    FontFaceList faces(*this);
    const int row = faces.selected();
    if (row < 0 || faces.count() < 2) return;
    faces.remove(row);
    faces.select(std::min(row, faces.count() - 1));
    UpdateButtons();
}

void DLG_FD_Multiple::OnSizePicked() { FontSizeField(*this).picked(); }
void DLG_FD_Multiple::OnSizeEdited() { FontSizeField(*this).edited(); }
void DLG_FD_Multiple::OnSizeDropDown() { FontSizeField(*this).fillList(); }
void DLG_FD_Multiple::OnVScroll(UINT, UINT, CScrollBar*) { FontSizeField(*this).arrowPressed(); }
