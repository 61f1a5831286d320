#include "corekit/devices/ui/PPage_SerialPort.h"

#include "corekit/commands/ui/AboutDialog.h"
#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/devices/SerialPort.h"
#include "corekit/foundation/SystemHelpers.h"
#include "corekit/framework/ui/DataExchange.h"
#include "corekit/framework/WinApp.h"
#include "corekit/resources/dialogs/SerialPortPage.h"

#include <cstdlib>

IMPLEMENT_DYNAMIC(PPage_SerialPort, CAXPropertyPage)

namespace {
using namespace corekit::detail::dialogs;

constexpr int rates[] = {50,   75,    110,   300,   1200,   2400,   4800,
                         9600, 19200, 38400, 57600, 115200, 230400, 460800};
constexpr int fewestBits = 5, lastPort = 99;

CString portText(int port) { return scFormatString("COM%02d", port); }
} // namespace

BEGIN_MESSAGE_MAP(PPage_SerialPort, CAXPropertyPage)
ON_CBN_SELCHANGE(serialPortChoice, &PPage_SerialPort::OnChange)
ON_CBN_EDITCHANGE(serialPortChoice, &PPage_SerialPort::OnChange)
ON_CBN_SELCHANGE(serialRateChoice, &PPage_SerialPort::OnChange)
ON_CONTROL_RANGE(0, serialBits5, serialFlowSoftware, &PPage_SerialPort::OnChoice)
ON_CONTROL_RANGE(0, serialStop1, serialStop2, &PPage_SerialPort::OnChoice)
END_MESSAGE_MAP()

PPage_SerialPort::PPage_SerialPort(CSerialPortConfig& config, unsigned int captionId, int allPorts)
    : CAXPropertyPage(serialPort.id, captionId), m_config(config), m_allPorts(allPorts)
{
}

void PPage_SerialPort::AddPorts()
{
    CArray<int, int> ports;
    if (m_allPorts)
        for (int port = 1; port <= lastPort; ++port) ports.Add(port);
    else
        CSerialPort::GetPortList(ports);
    for (int i = 0; i < ports.GetSize(); ++i)
        SendDlgItemMessage(serialPortChoice, CB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(portText(ports[i]).GetString()));
}

void PPage_SerialPort::AddRates()
{
    for (const int rate : rates)
        SendDlgItemMessage(serialRateChoice, CB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(scFormatString("%d", rate).GetString()));
}

BOOL PPage_SerialPort::OnInitDialog()
{
    AddPorts();
    AddRates();
    return CAXPropertyPage::OnInitDialog();
}

void PPage_SerialPort::DoDataExchange(CDataExchange* exchange)
{
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_CBString(exchange, serialPortChoice, m_port);
    DDX_CBString(exchange, serialRateChoice, m_rate);
    DDX_Radio(exchange, serialBits5, m_dataBits);
    DDX_Radio(exchange, serialParityNone, m_parity);
    DDX_Radio(exchange, serialStop1, m_stopBits);
    DDX_Radio(exchange, serialFlowNone, m_flow);
}

void PPage_SerialPort::LoadPage()
{
    m_port = portText(m_config.GetPortNumber());
    m_rate = scFormatString("%d", m_config.GetBaudRate());
    m_dataBits = m_config.GetDataBits() - fewestBits;
    m_parity = m_config.GetParity();
    m_stopBits = m_config.GetStopBits();
    m_flow = m_config.GetFlowControl();
}

int PPage_SerialPort::CommitPage()
{
    m_config.SetData(std::atoi(m_port.Mid(3)), std::atoi(m_rate), m_parity, m_dataBits + fewestBits,
                     m_stopBits, static_cast<eFlowControlMode>(m_flow));
    return 1;
}

void PPage_SerialPort::OnChange()
{
    UpdateData(TRUE);
    SetModified(1);
}

void CSerialPortConfig::AddPropertyPages(CAXPropertySheet& sheet, unsigned int captionId, int allPorts)
{
    sheet.AddPage(new PPage_SerialPort(*this, captionId, allPorts));
}

int CSerialPort::ModifyHandConfiguredPorts(CWnd*)
{
    const CWinApp* const app = AfxGetApp();
    return scShowStandardAboutDialog(app ? app->m_hInstance : nullptr, portsPicture, 0, nullptr);
}
