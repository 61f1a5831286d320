#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/devices/ui/PPage_SerialPort.h"
#include "corekit/platform/Buttons.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/DeviceFolders.h"
#include "corekit/platform/Toolkit.h"
#include "tests/support/RegistryHome.h"

namespace {

class SerialPortPage : public RegistryHome {
protected:
    SerialPortPage()
    {
        StartToolkit(ToolkitDisplay::offscreen);
        SetDeviceFolders({m_home / "dev", m_home / "sys"});
        std::filesystem::create_directories(m_home / "sys/class/tty/ttyS4/device");
    }
    ~SerialPortPage() override { SetDeviceFolders({}); }

    // The page in a sheet that stands by.
    PPage_SerialPort& Open(int allPorts)
    {
        sheet.SetAutoDeleteMode(1);
        config.AddPropertyPages(sheet, 0, allPorts);
        EXPECT_TRUE(sheet.CWnd::m_hWnd || sheet.CPropertySheet::Create(nullptr));
        return static_cast<PPage_SerialPort&>(*sheet.GetPageEx(0));
    }
    std::string Text(CWnd& page, int id) const
    {
        CString text;
        page.GetDlgItemText(id, text);
        return text.GetString();
    }
    static LRESULT Rows(CWnd& page, int id) { return page.SendDlgItemMessage(id, CB_GETCOUNT); }
    static int Checked(CWnd& page, int first, int last)
    {
        for (int id = first; id <= last; ++id)
            if (IsDlgButtonChecked(page, id)) return id;
        return 0;
    }

    CSerialPortConfig config;
    CAXPropertySheet sheet{"Line"};
};

TEST_F(SerialPortPage, ShowsTheSettingsAndTakesThemBack)
{
    config.SetData(5, 19200, 2, 5, 1, flowSoftware);
    PPage_SerialPort& page = Open(0);
    EXPECT_EQ(page.GetCaption(), "Serial Settings");
    EXPECT_EQ(Text(page, 1006), "COM05");
    EXPECT_EQ(Rows(page, 1006), 1);
    EXPECT_EQ(Text(page, 1007), "19200");
    EXPECT_EQ(Rows(page, 1007), 14);
    EXPECT_EQ(Checked(page, 1008, 1011), 1008);
    EXPECT_EQ(Checked(page, 1012, 1016), 1014);
    EXPECT_EQ(Checked(page, 1025, 1027), 1026);
    EXPECT_EQ(Checked(page, 1017, 1019), 1019);
    EXPECT_FALSE(sheet.DataChanged());
    const CSerialPortConfig before = config;
    EXPECT_TRUE(page.CommitPage());
    EXPECT_TRUE(config == before);

    page.SendDlgItemMessage(1011, BM_CLICK);
    page.SendDlgItemMessage(1017, BM_CLICK);
    EXPECT_TRUE(sheet.DataChanged());
    ASSERT_TRUE(page.CommitPage());
    EXPECT_EQ(config.GetDataBits(), 8);
    EXPECT_EQ(config.GetFlowControl(), flowNone);
    EXPECT_EQ(config.GetPortNumber(), 5);
}

TEST_F(SerialPortPage, ARateThatIsNotInTheListReadsBackAsNothing)
{
    config.SetData(1, 14400, 0, 8, 0, flowNone);
    PPage_SerialPort& page = Open(1);
    EXPECT_EQ(Rows(page, 1006), 99);
    EXPECT_EQ(Text(page, 1007), "");
    page.SendDlgItemMessage(1009, BM_CLICK);
    ASSERT_TRUE(page.CommitPage());
    EXPECT_EQ(config.GetBaudRate(), 0);
    EXPECT_EQ(config.GetPortNumber(), 1);
}

} // namespace
