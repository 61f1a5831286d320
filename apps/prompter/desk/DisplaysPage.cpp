// Which displays show the prompt, each with its own mirrors and turn.
#include "desk/SettingsDialogs.h"
#include "desk/SettingsSheet.h"

#include "corekit/framework/ui/DataExchange.h"

#include <algorithm>

namespace prompter {

IMPLEMENT_DYNAMIC(DisplaysPage, CAXPropertyPage)

BEGIN_MESSAGE_MAP(DisplaysPage, CAXPropertyPage)
ON_CONTROL(LBN_SELCHANGE, displayList, &DisplaysPage::OnPick)
ON_BN_CLICKED(showHereCheck, &DisplaysPage::OnChange)
ON_BN_CLICKED(mirrorSidesCheck, &DisplaysPage::OnChange)
ON_BN_CLICKED(mirrorTopCheck, &DisplaysPage::OnChange)
ON_CONTROL(CBN_SELCHANGE, turnChoice, &DisplaysPage::OnChange)
END_MESSAGE_MAP()

namespace {

std::string RowText(const OutputSettings& output, std::span<const Display> there)
{
    const auto display = std::ranges::find(there, output.display, &Display::name);
    if (display == there.end()) return output.display + "  (away)";
    const RECT& r = display->place;
    std::string text = output.display;
    if (display->description != output.display) text += "  " + display->description;
    return text + "  " + std::to_string(r.right - r.left) + " x " + std::to_string(r.bottom - r.top);
}

} // namespace

DisplaysPage::DisplaysPage(Settings& settings, std::vector<Display> there)
    : CAXPropertyPage(dialogs::displaysId), m_settings(settings), m_there(std::move(there))
{
}

void DisplaysPage::LoadPage()
{
    m_outputs = m_settings.outputs;
    for (const Display& display : m_there) SettingsOf(m_outputs, display.name);
    for (const OutputSettings& output : m_outputs)
        SendDlgItemMessage(displayList, LB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(RowText(output, m_there).c_str()));
    for (const char* const text : {"Not at all", "By a quarter", "By a half", "By three quarters"})
        SendDlgItemMessage(turnChoice, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    SendDlgItemMessage(displayList, LB_SETCURSEL, 0, 0);
    UpdateControls();
}

OutputSettings* DisplaysPage::Picked()
{
    const auto row = static_cast<std::size_t>(SendDlgItemMessage(displayList, LB_GETCURSEL, 0, 0));
    return row < m_outputs.size() ? &m_outputs[row] : nullptr;
}

void DisplaysPage::UpdateControls()
{
    const OutputSettings* const output = Picked();
    const OutputSettings shown = output ? *output : OutputSettings{{}, {}, false};
    for (const int id : {static_cast<int>(showHereCheck), static_cast<int>(mirrorSidesCheck),
                         static_cast<int>(mirrorTopCheck), static_cast<int>(turnChoice)})
        GetDlgItem(id)->EnableWindow(output != nullptr);
    ::CheckDlgButton(m_hWnd, showHereCheck, shown.isOn);
    ::CheckDlgButton(m_hWnd, mirrorSidesCheck, shown.form.mirrorLeftRight);
    ::CheckDlgButton(m_hWnd, mirrorTopCheck, shown.form.mirrorTopBottom);
    SendDlgItemMessage(turnChoice, CB_SETCURSEL, static_cast<WPARAM>(shown.form.turn), 0);
}

void DisplaysPage::OnPick() { UpdateControls(); }

void DisplaysPage::OnChange()
{
    OutputSettings* const output = Picked();
    if (!output) return;
    output->isOn = ::IsDlgButtonChecked(m_hWnd, showHereCheck) != 0;
    output->form.mirrorLeftRight = ::IsDlgButtonChecked(m_hWnd, mirrorSidesCheck) != 0;
    output->form.mirrorTopBottom = ::IsDlgButtonChecked(m_hWnd, mirrorTopCheck) != 0;
    const auto turn = SendDlgItemMessage(turnChoice, CB_GETCURSEL, 0, 0);
    output->form.turn = static_cast<Turn>(std::clamp<LRESULT>(turn, 0, 3));
    SetModified(1);
}

// A display that is there, off and plain has nothing to remember.
int DisplaysPage::CommitPage()
{
    std::erase_if(m_outputs, [](const OutputSettings& o) { return !o.isOn && o.form.IsPlain(); });
    m_settings.outputs = m_outputs;
    return 1;
}

} // namespace prompter
