#include "desk/SettingsSheet.h"

#include "desk/SettingsDialogs.h"

namespace prompter {

IMPLEMENT_DYNAMIC(SettingsSheet, CAXPropertySheet)

SettingsSheet::SettingsSheet(const Settings& settings, std::vector<Display> there, CWnd* parent)
    : CAXPropertySheet("Settings", parent), m_settings(settings), m_reading(m_settings), m_look(m_settings),
      m_displays(m_settings, std::move(there)), m_files(m_settings)
{
    AddPage(&m_reading);
    AddPage(&m_look);
    AddPage(&m_displays);
    AddPage(&m_files);
}

} // namespace prompter
