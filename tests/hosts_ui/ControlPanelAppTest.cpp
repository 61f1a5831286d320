#include "corekit/hosts/ui/ControlPanelApp.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::string heard;

class Item : public CControlPanelItem {
public:
    explicit Item(int number) : m_number(number) {}
    ~Item() override { heard += "gone " + std::to_string(m_number) + "|"; }
    void OnDoubleClick(CWnd* parent) override
    {
        heard += "open " + std::to_string(m_number) + (parent ? " over" : "") + "|";
    }
    int GetIconId() override { return m_number * 10; }
    int GetNameId() override { return m_number * 10 + 1; }
    int GetInfoId() override { return m_number * 10 + 2; }

private:
    int m_number;
};

class Applets : public CControlPanelApp {
public:
    void OnLoad() override { heard += "load|"; }
    int OnAppletInit() override
    {
        AddCplItem(new Item(1));
        if (!starts) return 0;
        AddCplItem(new Item(2));
        return 1;
    }
    void OnAppletExit() override { heard += "exit|"; }

    bool starts = true;
};

TEST(ControlPanel, TheShellsMessagesReachTheirApplets)
{
    heard.clear();
    Applets app;
    EXPECT_TRUE(app.InitInstance());
    EXPECT_EQ(app.CplApplet(nullptr, CPL_INIT, 0, 0), 1);
    EXPECT_EQ(app.CplApplet(nullptr, CPL_GETCOUNT, 0, 0), 2);
    CPLINFO info{};
    EXPECT_EQ(app.CplApplet(nullptr, CPL_INQUIRE, 1, reinterpret_cast<long>(&info)), 0);
    EXPECT_EQ(info.idIcon, 20);
    EXPECT_EQ(info.idName, 21);
    EXPECT_EQ(info.idInfo, 22);
    EXPECT_EQ(info.lData, 1);
    for (const long outside : {-1L, 2L, 1000000L}) {
        EXPECT_EQ(app.CplApplet(nullptr, CPL_INQUIRE, outside, reinterpret_cast<long>(&info)), 0);
        EXPECT_EQ(app.CplApplet(nullptr, CPL_DBLCLK, outside, 0), 0);
    }
    EXPECT_EQ(info.idIcon, 20);
    EXPECT_EQ(app.CplApplet(nullptr, CPL_DBLCLK, 0, 0), 0);
    EXPECT_EQ(app.CplApplet(nullptr, 99, 0, 0), 0);
    EXPECT_EQ(app.CplApplet(nullptr, CPL_EXIT, 0, 0), 0);
    EXPECT_EQ(app.CplApplet(nullptr, CPL_GETCOUNT, 0, 0), 0);
    EXPECT_EQ(heard, "load|open 1|gone 1|gone 2|exit|");
}

TEST(ControlPanel, AStartThatFailsEndsAtOnce)
{
    heard.clear();
    Applets app;
    app.starts = false;
    EXPECT_EQ(app.CplApplet(nullptr, CPL_INIT, 0, 0), 0);
    EXPECT_EQ(app.CplApplet(nullptr, CPL_GETCOUNT, 0, 0), 0);
    EXPECT_EQ(heard, "gone 1|exit|");
}

} // namespace
