// How fast is read, what the clock shows, and where the hand controller is.
#include "desk/SettingsDialogs.h"
#include "desk/SettingsSheet.h"

#include "corekit/framework/ui/DataExchange.h"
#include "corekit/platform/SerialPorts.h"

#include <algorithm>

namespace prompter {

IMPLEMENT_DYNAMIC(ReadingPage, CAXPropertyPage)

BEGIN_MESSAGE_MAP(ReadingPage, CAXPropertyPage)
ON_BN_CLICKED(bySecondsRadio, &ReadingPage::OnKind)
ON_BN_CLICKED(byCharactersRadio, &ReadingPage::OnKind)
END_MESSAGE_MAP()

ReadingPage::ReadingPage(Settings& settings) : CAXPropertyPage(dialogs::readingId), m_settings(settings) {}

void ReadingPage::DoDataExchange(CDataExchange* exchange)
{
    constexpr int mostLines = 1000, mostSeconds = 3600, mostCharacters = 1000, mostCountdown = 99;
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_Radio(exchange, bySecondsRadio, m_kind);
    DDX_Text(exchange, linesField, m_lines);
    DDV_MinMaxInt(exchange, m_lines, 1, mostLines);
    DDX_Text(exchange, secondsField, m_seconds);
    DDV_MinMaxInt(exchange, m_seconds, 1, mostSeconds);
    DDX_Text(exchange, charactersField, m_characters);
    DDV_MinMaxInt(exchange, m_characters, 1, mostCharacters);
    DDX_Text(exchange, countdownField, m_countdown);
    DDV_MinMaxInt(exchange, m_countdown, 0, mostCountdown);
    DDX_Check(exchange, statusCheck, m_status);
    DDX_CBIndex(exchange, clockChoice, m_clock);
    DDX_CBIndex(exchange, portChoice, m_port);
}

void ReadingPage::LoadPage()
{
    const SessionSettings& s = m_settings.session;
    m_kind = s.rate.bySeconds ? 0 : 1;
    m_lines = s.rate.lines;
    m_seconds = s.rate.seconds;
    m_characters = s.rate.charactersPerLine;
    m_countdown = s.countdownSeconds;
    m_status = s.showsStatus;
    m_clock = static_cast<int>(s.clock);
    for (const char* const text : {"As the machine is set", "PAL, 25 frames", "NTSC, 30 frames"})
        SendDlgItemMessage(clockChoice, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    ListPorts();
    UpdateData(FALSE);
    UpdateControls();
}

// Those of the machine, and the one that is set though it is not there now.
void ReadingPage::ListPorts()
{
    m_ports = {0};
    std::vector<std::string> texts = {"(none)"};
    for (const SerialPortFacts& facts : ListSerialPorts()) {
        m_ports.push_back(facts.number);
        texts.push_back("COM" + std::to_string(facts.number) + "  " + facts.device);
    }
    const int port = m_settings.controllerPort;
    if (std::ranges::find(m_ports, port) == m_ports.end()) {
        m_ports.push_back(port);
        texts.push_back("COM" + std::to_string(port) + "  (away)");
    }
    m_port = static_cast<int>(std::ranges::find(m_ports, port) - m_ports.begin());
    for (const std::string& text : texts)
        SendDlgItemMessage(portChoice, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

int ReadingPage::CommitPage()
{
    SessionSettings& s = m_settings.session;
    s.rate = {m_kind == 0, m_lines, m_seconds, m_characters};
    s.countdownSeconds = m_countdown;
    s.showsStatus = m_status != 0;
    s.clock = static_cast<Clock>(std::clamp(m_clock, 0, static_cast<int>(Clock::ntsc)));
    if (m_port >= 0) m_settings.controllerPort = m_ports[static_cast<std::size_t>(m_port)];
    return 1;
}

void ReadingPage::UpdateControls()
{
    for (const int id : {static_cast<int>(linesField), static_cast<int>(secondsField)})
        GetDlgItem(id)->EnableWindow(m_kind == 0);
    GetDlgItem(charactersField)->EnableWindow(m_kind != 0);
}

void ReadingPage::OnKind()
{
    m_kind = ::IsDlgButtonChecked(m_hWnd, bySecondsRadio) ? 0 : 1;
    UpdateControls();
    SetModified(1);
}

} // namespace prompter
