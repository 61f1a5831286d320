#include "corekit/commands/ui/PPage_Miscellaneous.h"

#include "corekit/framework/ui/DataExchange.h"
#include "corekit/resources/dialogs/OptionsPages.h"
#include "corekit/stores/RegistryKey.h"

IMPLEMENT_DYNAMIC(PPage_Miscellaneous, CAXPropertyPage)

namespace {
constexpr int useSecondsControl = 1014, linesControl = 1015, secondsControl = 1016, charactersControl = 1017;
constexpr const char* keyName = "Software\\Corvane\\Unicode Support";
} // namespace

BEGIN_MESSAGE_MAP(PPage_Miscellaneous, CAXPropertyPage)
ON_BN_CLICKED(useSecondsControl, &PPage_Miscellaneous::OnUseSeconds)
ON_EN_CHANGE(linesControl, &PPage_Miscellaneous::OnChange)
ON_EN_CHANGE(secondsControl, &PPage_Miscellaneous::OnChange)
ON_EN_CHANGE(charactersControl, &PPage_Miscellaneous::OnChange)
END_MESSAGE_MAP()

PPage_Miscellaneous::PPage_Miscellaneous() : CAXPropertyPage(corekit::detail::dialogs::miscellaneous.id) {}

void PPage_Miscellaneous::DoDataExchange(CDataExchange* exchange)
{
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_Check(exchange, useSecondsControl, m_usesSeconds);
    DDX_Text(exchange, linesControl, m_lines);
    DDX_Text(exchange, secondsControl, m_seconds);
    DDX_Text(exchange, charactersControl, m_charactersPerLine);
}

void PPage_Miscellaneous::LoadPage()
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, keyName);
    if (!key.GetValue("Use Seconds Per Line", m_usesSeconds)) m_usesSeconds = 0;
    if (!key.GetValue("Lines", m_lines)) m_lines = 3;
    if (!key.GetValue("Seconds", m_seconds)) m_seconds = 10;
    if (!key.GetValue("Characters Per Line", m_charactersPerLine)) m_charactersPerLine = 15;
    UpdateData(FALSE);
    UpdateControls();
}

int PPage_Miscellaneous::CommitPage()
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, keyName);
    key.SetValue("Use Seconds Per Line", m_usesSeconds);
    key.SetValue("Lines", m_lines);
    key.SetValue("Seconds", m_seconds);
    key.SetValue("Characters Per Line", m_charactersPerLine);
    return 1;
}

void PPage_Miscellaneous::UpdateControls()
{
    for (const int id : {linesControl, secondsControl})
        if (CWnd* const field = GetDlgItem(id)) field->EnableWindow(m_usesSeconds != 0);
}

void PPage_Miscellaneous::OnUseSeconds()
{
    UpdateData(TRUE);
    UpdateControls();
    SetModified(1);
}
