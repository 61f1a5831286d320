#include "corekit/unicode/ui/pages/PPage_Unicode_General.h"

#include "corekit/framework/ui/DataExchange.h"
#include "corekit/resources/dialogs/UnicodePages.h"
#include "corekit/resources/Messages.h"
#include "corekit/unicode/ui/UnicodeManager.h"

IMPLEMENT_DYNAMIC(PPage_Unicode_General, CAXPropertyPage)

namespace {
constexpr int fontControl = 1011, standardControl = 1013, biDiControl = 1008, complexControl = 1010;
constexpr int underlineControl = 1012, lineHeightControl = 1009;
} // namespace

BEGIN_MESSAGE_MAP(PPage_Unicode_General, CAXPropertyPage)
ON_BN_CLICKED(fontControl, &PPage_Unicode_General::OnChooseFont)
ON_BN_CLICKED(standardControl, &PPage_Unicode_General::OnHandling)
ON_BN_CLICKED(biDiControl, &PPage_Unicode_General::OnHandling)
ON_BN_CLICKED(complexControl, &PPage_Unicode_General::OnHandling)
ON_BN_CLICKED(underlineControl, &PPage_Unicode_General::OnUnderlineSelect)
ON_BN_CLICKED(lineHeightControl, &PPage_Unicode_General::OnExtraLineHeight)
END_MESSAGE_MAP()

PPage_Unicode_General::PPage_Unicode_General() : CAXPropertyPage(corekit::detail::dialogs::unicodeGeneral.id)
{
}

void PPage_Unicode_General::DoDataExchange(CDataExchange* exchange)
{
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_Radio(exchange, standardControl, m_handling);
    DDX_Check(exchange, underlineControl, m_underlineSelect);
    DDX_Check(exchange, lineHeightControl, m_extraLineHeight);
}

void PPage_Unicode_General::LoadPage()
{
    CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    manager.GetControlsFontDescriptor(m_font);
    m_handling = manager.IsBIDIEnabled(FALSE) ? 1 : manager.WindowsComplexLanguageHandlingEnabled() ? 2 : 0;
    m_underlineSelect = manager.IsUnderlineSelectEnabled() != 0;
    m_extraLineHeight = manager.ExtraLineHeight() != 0;
}

int PPage_Unicode_General::CommitPage()
{
    CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    manager.SetControlsFontDescriptor(m_font);
    manager.SetBIDIEnabled(m_handling == 1);
    manager.SetWindowsComplexLanguageHandling(m_handling == 2);
    manager.SetExtraLineHeight(m_extraLineHeight);
    manager.SetUnderlineSelectEnabled(m_underlineSelect);
    return 1;
}

void PPage_Unicode_General::OnChooseFont()
{
    if (m_font.DoSelectFontDialog(this, 0)) SetModified(1);
}

void PPage_Unicode_General::OnHandling()
{
    UpdateData(TRUE);
    if (m_handling == 2 &&
        StockMessageBox(this, message::enableComplexLanguages, MB_YESNO | MB_ICONEXCLAMATION) != IDYES)
        m_handling = 0;
    m_underlineSelect = m_handling > 0;
    UpdateData(FALSE);
    SetModified(1);
}

void PPage_Unicode_General::OnUnderlineSelect()
{
    UpdateData(TRUE);
    if (!m_underlineSelect && m_handling > 0 &&
        StockMessageBox(this, message::disableUnderlineSelect, MB_YESNO | MB_ICONEXCLAMATION) != IDYES) {
        m_underlineSelect = 1;
        UpdateData(FALSE);
    }
    SetModified(1);
}
