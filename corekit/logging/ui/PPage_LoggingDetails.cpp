#include "corekit/logging/ui/PPage_LoggingDetails.h"

#include "corekit/framework/ui/DataExchange.h"
#include "corekit/logging/LogLevel.h"
#include "corekit/resources/dialogs/LoggingDetails.h"

IMPLEMENT_DYNAMIC(PPage_LoggingDetails, CAXPropertyPage)

namespace {
constexpr int enabledControl = 1013, firstLevelControl = 1014, lastLevelControl = 1020, daysControl = 1058;
} // namespace

BEGIN_MESSAGE_MAP(PPage_LoggingDetails, CAXPropertyPage)
ON_BN_CLICKED(enabledControl, &PPage_LoggingDetails::OnEnabled)
ON_CONTROL_RANGE(BN_CLICKED, firstLevelControl, lastLevelControl, &PPage_LoggingDetails::OnLevel)
ON_EN_CHANGE(daysControl, &PPage_LoggingDetails::OnDays)
END_MESSAGE_MAP()

PPage_LoggingDetails::PPage_LoggingDetails(UINT captionId, int* enabled, unsigned long* mask, int* days)
    : CAXPropertyPage(corekit::detail::dialogs::loggingDetails.id, captionId), m_enabled(enabled),
      m_mask(mask), m_days(days)
{
}

void PPage_LoggingDetails::DoDataExchange(CDataExchange* exchange)
{
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_Check(exchange, enabledControl, m_isEnabled);
    for (int k = 0; k < levels; ++k) DDX_Check(exchange, firstLevelControl + k, m_checks[k]);
    DDX_Text(exchange, daysControl, m_oldDays);
}

void PPage_LoggingDetails::LoadPage()
{
    m_isEnabled = !m_enabled || *m_enabled;
    for (int k = 0; k < levels; ++k) m_checks[k] = (*m_mask & (logDebug << k)) != 0;
    m_oldDays = *m_days;
}

int PPage_LoggingDetails::CommitPage()
{
    *m_mask = 0;
    for (int k = 0; k < levels; ++k)
        if (m_checks[k]) *m_mask |= logDebug << k;
    if (m_enabled) *m_enabled = m_isEnabled;
    *m_days = m_oldDays;
    return 1;
}

void PPage_LoggingDetails::UpdateControls()
{
    if (CWnd* const enabled = GetDlgItem(enabledControl)) enabled->EnableWindow(m_enabled != nullptr);
    for (int id = firstLevelControl; id <= lastLevelControl; ++id)
        if (CWnd* const level = GetDlgItem(id)) level->EnableWindow(m_isEnabled != 0);
}

void PPage_LoggingDetails::OnEnabled()
{
    UpdateData(TRUE);
    UpdateControls();
    SetModified(1);
}
