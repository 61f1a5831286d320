// The page on which a user sets a serial line. It writes into the settings that it was made for, which must
// outlive it, and only when the sheet commits. User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/devices/SerialPortConfig.h"

class COREKIT_API PPage_SerialPort : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_SerialPort)
public:
    // A caption of 0 is "Serial Settings". Offers the machine's ports, with `allPorts` nonzero COM1 to
    // COM99; others can be typed. Offers the usual rates only: any other shows as none.
    PPage_SerialPort(CSerialPortConfig& config, unsigned int captionId, int allPorts);

    // From the settings to the controls' values.
    void LoadPage() override;
    // From the controls' values to the settings; always 1. What was typed is not judged: no number is 0.
    int CommitPage() override;

    void UpdateControls() override {}
    // Fills the two lists.
    BOOL OnInitDialog() override;

protected:
    // Between the controls and the variables; nothing is judged.
    void DoDataExchange(CDataExchange* exchange) override;
    // Marks the page as modified; called for every choice and every letter.
    void OnChange();
    void OnChoice(UINT) { OnChange(); } // any of the buttons
    DECLARE_MESSAGE_MAP()

private:
    void AddPorts(); // COM01 and on
    void AddRates(); // 50 to 460,800 bits per second

    CSerialPortConfig& m_config;                                  // the caller's
    const int m_allPorts;                                         // offer COM1 to COM99
    CString m_port, m_rate;                                       // as the two boxes show them
    int m_dataBits = 0, m_parity = 0, m_stopBits = 0, m_flow = 0; // which button, from 0
};
