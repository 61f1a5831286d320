#include "corekit/unicode/ui/fontdialogs/DLG_FD_Single.h"

#include "corekit/resources/dialogs/Fonts.h"
#include "corekit/unicode/ui/fontdialogs/FontFaceList.h"
#include "corekit/unicode/ui/fontdialogs/FontSizeField.h"

#include <utility>

IMPLEMENT_DYNAMIC(DLG_FD_Single, CDialog)

using namespace corekit::detail;

namespace {
constexpr int multipleControl = 1000, previewControl = 1041;
} // namespace

BEGIN_MESSAGE_MAP(DLG_FD_Single, CDialog)
ON_BN_CLICKED(multipleControl, &DLG_FD_Single::OnMultiple)
ON_LBN_SELCHANGE(facesControl, &DLG_FD_Single::OnFace)
ON_CBN_SELCHANGE(sizeControl, &DLG_FD_Single::OnSizePicked)
ON_CBN_EDITCHANGE(sizeControl, &DLG_FD_Single::OnSizeEdited)
ON_CBN_DROPDOWN(sizeControl, &DLG_FD_Single::OnSizeDropDown)
ON_WM_VSCROLL()
END_MESSAGE_MAP()

DLG_FD_Single::DLG_FD_Single(CWnd* parent, CFontDescriptor& font, int readOnly)
    : CDialog(dialogs::selectFont.id, parent), m_font(&font), m_readOnly(readOnly)
{
}

DLG_FD_Single::~DLG_FD_Single()
{
    if (m_hWnd) DestroyWindow();
    if (m_preview) DeleteObject(m_preview);
}

BOOL DLG_FD_Single::OnInitDialog()
{
    CDialog::OnInitDialog();
    FontFaceList faces(*this);
    faces.fillWithAll();
    faces.select(m_font->GetFont(0));
    FontSizeField size(*this);
    size.begin(m_font->GetSize());
    if (m_readOnly) {
        size.enable(false);
        for (const int id : {facesControl, multipleControl, IDOK})
            if (CWnd* const control = GetDlgItem(id)) control->EnableWindow(FALSE);
    }
    ShowPreview();
    return TRUE;
}

// A face that the machine does not have stays chosen until another one is.
CString DLG_FD_Single::ChosenFace() const
{
    const FontFaceList faces(*this);
    return faces.selected() >= 0 ? faces.face(faces.selected()) : m_font->GetFont(0);
}

void DLG_FD_Single::StoreChoice()
{
    const CString face = ChosenFace();
    const int size = FontSizeField(*this).size();
    m_font->Empty();
    if (!face.IsEmpty()) m_font->AddFont(face);
    m_font->SetSize(size);
}

void DLG_FD_Single::OnOK()
{
    StoreChoice();
    CDialog::OnOK();
}

void DLG_FD_Single::OnMultiple()
{
    StoreChoice();
    EndDialog(wantsMultiple);
}

void DLG_FD_Single::OnSizePicked()
{
    FontSizeField(*this).picked();
    ShowPreview();
}

void DLG_FD_Single::OnSizeEdited()
{
    FontSizeField(*this).edited();
    ShowPreview();
}

void DLG_FD_Single::OnSizeDropDown() { FontSizeField(*this).fillList(); }

void DLG_FD_Single::OnVScroll(UINT, UINT, CScrollBar*)
{
    FontSizeField(*this).arrowPressed();
    ShowPreview();
}

void DLG_FD_Single::ShowPreview()
{
    constexpr DWORD anyCharacterSet = 1, outlinesOnly = 7, embedded = 32;
    const HFONT font = CreateFontA(FontSizeField(*this).size(), 0, 0, 0, 400, 0, 0, 0, anyCharacterSet,
                                   outlinesOnly, embedded, 0, 0, ChosenFace());
    CWnd* const preview = GetDlgItem(previewControl);
    if (preview) preview->SetFont(font);
    if (const HFONT before = std::exchange(m_preview, font)) DeleteObject(before);
}
