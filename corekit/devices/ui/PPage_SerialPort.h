// The page on which a user sets a serial line. It writes into the settings that it was made for, which must
// outlive it.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/devices/SerialPortConfig.h"

class COREKIT_API PPage_SerialPort : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_SerialPort)
public:
    // A caption of 0 is "Serial Settings". Offers the machine's ports, with `allPorts` nonzero COM1 to COM99.
    PPage_SerialPort(CSerialPortConfig& config, unsigned int captionId, int allPorts);

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override {}
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnChange();
    void OnChoice(UINT) { OnChange(); }
    DECLARE_MESSAGE_MAP()

private:
    void AddPorts();
    void AddRates();

    CSerialPortConfig& m_config;
    const int m_allPorts;
    CString m_port, m_rate;
    int m_dataBits = 0, m_parity = 0, m_stopBits = 0, m_flow = 0; // which button, from 0
};
