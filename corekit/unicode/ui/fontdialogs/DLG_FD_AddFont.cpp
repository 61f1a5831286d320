#include "corekit/unicode/ui/fontdialogs/DLG_FD_AddFont.h"

#include "corekit/resources/dialogs/Fonts.h"
#include "corekit/unicode/ui/fontdialogs/FontFaceList.h"

IMPLEMENT_DYNAMIC(DLG_FD_AddFont, CDialog)

using namespace corekit::detail;

BEGIN_MESSAGE_MAP(DLG_FD_AddFont, CDialog)
ON_LBN_SELCHANGE(facesControl, &DLG_FD_AddFont::OnFace)
ON_LBN_DBLCLK(facesControl, &DLG_FD_AddFont::OnOK)
END_MESSAGE_MAP()

DLG_FD_AddFont::DLG_FD_AddFont(CWnd* parent, const CStringArray& chosen)
    : CDialog(dialogs::addFont.id, parent), m_chosen(&chosen)
{
}

BOOL DLG_FD_AddFont::OnInitDialog()
{
    CDialog::OnInitDialog();
    FontFaceList(*this).fillWithAll(*m_chosen);
    OnFace();
    return TRUE;
}

void DLG_FD_AddFont::OnFace()
{
    if (CWnd* const ok = GetDlgItem(IDOK)) ok->EnableWindow(FontFaceList(*this).selected() >= 0);
}

void DLG_FD_AddFont::OnOK()
{
    const FontFaceList faces(*this);
    if (faces.selected() < 0) return;
    m_face = faces.face(faces.selected());
    CDialog::OnOK();
}
