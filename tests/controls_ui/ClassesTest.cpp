// The classes of the controls: what their parents hear comes back to them.
#include "corekit/framework/ui/Button.h"
#include "corekit/framework/ui/ComboBox.h"
#include "corekit/framework/ui/Edit.h"
#include "corekit/framework/ui/ListBox.h"
#include "corekit/framework/ui/ListCtrl.h"
#include "corekit/framework/ui/ScrollBar.h"
#include "corekit/framework/ui/StatusBarCtrl.h"
#include "corekit/framework/ui/TabCtrl.h"
#include "corekit/framework/ui/ToolTipCtrl.h"
#include "corekit/framework/ui/TreeCtrl.h"
#include "corekit/platform/InputTest.h"

#include <gtest/gtest.h>

#include <set>

using namespace corekit::test;

namespace {

template <typename Control>
class Heard : public Control {
public:
    std::set<UINT> messages;

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        messages.insert(message);
        return Control::OnChildNotify(message, wParam, lParam, result);
    }
};

class CDrawnList : public Heard<CListBox> {
public:
    std::string done;
    void DrawItem(DRAWITEMSTRUCT*) override { done += 'd'; }
    void MeasureItem(MEASUREITEMSTRUCT* row) override
    {
        done += 'm';
        row->itemHeight = 33;
    }
    int CompareItem(COMPAREITEMSTRUCT* rows) override { return rows->itemData1 < rows->itemData2 ? -1 : 1; }
    void DeleteItem(DELETEITEMSTRUCT*) override { done += 'x'; }
};

class ControlClasses : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.CreateEx(0, nullptr, "top", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                 nullptr));
    }
    void TearDown() override
    {
        top.DestroyWindow();
        RunWaiting();
    }
    template <typename Control>
    void expectHeard(Control& control, DWORD style, int key, UINT message)
    {
        ASSERT_TRUE(control.Create(WS_CHILD | WS_VISIBLE | style, CRect(0, 0, 90, 90), &top, 5));
        RunWaiting();
        control.SetFocus();
        PressKey(key);
        EXPECT_TRUE(control.messages.contains(message)) << control.GetRuntimeClass()->m_lpszClassName;
    }
    CWnd top;
};

} // namespace

TEST_F(ControlClasses, HearTheirOwnNotifications)
{
    Heard<CEdit> edit;
    expectHeard(edit, 0, 'X', WM_COMMAND);
    Heard<CListBox> list;
    expectHeard(list, LBS_NOTIFY, 'X', WM_COMMAND);
    Heard<CComboBox> combo;
    expectHeard(combo, CBS_DROPDOWN, 'X', WM_COMMAND);
    Heard<CTreeCtrl> tree;
    expectHeard(tree, 0, 'X', WM_NOTIFY);
    Heard<CListCtrl> report;
    expectHeard(report, LVS_REPORT, 'X', WM_NOTIFY);
    Heard<CTabCtrl> tabs;
    expectHeard(tabs, 0, 'X', WM_NOTIFY);
    Heard<CScrollBar> bar;
    expectHeard(bar, 0, VK_RIGHT, WM_HSCROLL);
    Heard<CStatusBarCtrl> status;
    ASSERT_TRUE(status.Create(WS_CHILD | WS_VISIBLE, CRect(), &top, 6));
    status.SetText("", 0, static_cast<int>(SBT_OWNERDRAW));
    RunWaiting();
    EXPECT_TRUE(status.messages.contains(WM_DRAWITEM));
}

TEST_F(ControlClasses, DrawTheirRows)
{
    CDrawnList list;
    ASSERT_TRUE(
        list.Create(WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_SORT, CRect(0, 0, 90, 90), &top, 5));
    EXPECT_EQ(list.done, "m");
    EXPECT_EQ(list.GetItemHeight(0), 33);
    for (const char* data : {"b", "a"}) list.AddString(data);
    EXPECT_EQ(list.GetItemData(0) < list.GetItemData(1), true);
    RunWaiting();
    EXPECT_NE(list.done.find('d'), std::string::npos);
    list.done.clear();
    list.ResetContent();
    EXPECT_EQ(list.done.substr(0, 2), "xx");
}

TEST_F(ControlClasses, ToolTipsTakeNumbersOfTexts)
{
    CToolTipCtrl tip;
    ASSERT_TRUE(tip.Create(&top));
    EXPECT_TRUE(tip.AddTool(&top, 4003u));
    char text[64] = {};
    TOOLINFOA info{};
    info.hwnd = top;
    info.uId = reinterpret_cast<UINT_PTR>(top.m_hWnd);
    info.lpszText = text;
    tip.SendMessage(TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&info));
    EXPECT_STREQ(text, "EBCDIC US / Canada Codepage (037)");
    tip.UpdateTipText(4004u, &top);
    tip.SendMessage(TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&info));
    EXPECT_STREQ(text, "MS-DOS United States Codepage (437)");
}
