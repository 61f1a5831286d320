#include "ControlHelp.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/unicode/ui/list/UnicodeListCtrl.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace corekit::test;

class Names final : public CUnicodeListCtrl {
public:
    void GetColumnText(StringW& out, long data, int column) override
    {
        asked.insert({data, column});
        out = u"cell";
    }
    void OnListKeyDown(UINT key, UINT, UINT) override
    {
        keys.push_back(key);
        if (key == VK_DELETE && destroysItself) DestroyWindow();
    }
    void OnListChar(UINT c, UINT, UINT) override { characters += static_cast<char>(c); }
    void OnListLButtonDown(UINT, CPoint) override { selectedAtClick = GetCurSel(); }
    void OnListLButtonDblClk(UINT, CPoint) override { ++doubleClicks; }

    std::set<std::pair<long, int>> asked;
    std::vector<UINT> keys;
    std::string characters;
    int selectedAtClick = -2, doubleClicks = 0;
    bool destroysItself = false;
};

class UnicodeList : public testing::Test {
protected:
    explicit UnicodeList(DWORD style = 0)
    {
        CUnicodeManager::Initialise(1)->OverrideControlsFont(EditInAWindow::Font());
        window.CreateEx(0, AfxRegisterWndClass(0), "", WS_OVERLAPPEDWINDOW, 0, 0, 500, 400, nullptr, nullptr);
        list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | style, CRect(0, 0, 400, 300), &window, 1);
        for (int i = 0; i < 2; ++i) list.InsertColumn(i, "column", LVCFMT_LEFT, 150);
        window.ShowWindow(SW_SHOW);
        list.SetFocus();
        RunWaiting();
    }
    ~UnicodeList() override { window.DestroyWindow(); }
    void Fill()
    {
        list.AddString(u"delta", ulcPlain, 40);
        list.AddString(u"alpha", ulcBold, 10);
        list.AddString(u"charlie", static_cast<eULCItemStyle>(-2), 30);
        list.AddString(u"bravo", static_cast<eULCItemStyle>(7), 10);
    }

    CWnd window;
    Names list;
};
struct SortedUnicodeList : UnicodeList {
    SortedUnicodeList() : UnicodeList(LVS_SORTASCENDING) {}
};

TEST_F(UnicodeList, AnEmptyOneHasNoSelection)
{
    EXPECT_EQ(list.GetCurSel(), -1);
    EXPECT_TRUE(list.GetSelection().IsEmpty());
    EXPECT_EQ(list.GetSelectedItemData(), 0);
    EXPECT_FALSE(list.SelectString(u"*"));
    EXPECT_EQ(list.GetText(3), u"");
}

TEST_F(UnicodeList, OneSelectedRowIsTheSelectionAndTwoAreNone)
{
    Fill();
    list.SetCurSel(2);
    EXPECT_EQ(list.GetSelection(), u"charlie");
    EXPECT_EQ(list.GetSelectedItemData(), 30);
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.GetCurSel(), -1);
    EXPECT_EQ(list.GetSelectedItemData(), 0);
    list.SetCurSel(1);
    EXPECT_EQ(list.GetCurSel(), 1) << "the others are let go";
    list.SetCurSel(-1);
    EXPECT_EQ(list.GetSelectedCount(), 0u);
}

TEST_F(UnicodeList, TextAndDataFindRowsAndDeletingOneLeavesTheOthers)
{
    Fill();
    EXPECT_EQ(list.FindItemByData(10), 3) << "the entry added last";
    EXPECT_TRUE(list.SelectString(u"*a*"));
    EXPECT_EQ(list.GetCurSel(), 0) << "the entry added first";
    EXPECT_FALSE(list.SelectString(u"nobody"));
    EXPECT_EQ(list.GetCurSel(), -1);
    EXPECT_TRUE(list.DeleteItemByData(30));
    EXPECT_FALSE(list.DeleteItemByData(30));
    EXPECT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.GetText(2), u"bravo");
    EXPECT_EQ(list.InsertString(0, u"echo", ulcPlain, 50), 0);
    EXPECT_EQ(list.GetText(0), u"echo");
    list.SetItemData(0, 99);
    EXPECT_EQ(list.GetItemData(0), 50);
    list.DeleteString(77);
    EXPECT_EQ(list.GetCount(), 4);
    list.ResetContent();
    EXPECT_EQ(list.GetItemCount() + list.GetCount(), 0);
}

TEST_F(SortedUnicodeList, RowsAreFoundWhereTheyAreShown)
{
    Fill();
    EXPECT_EQ(list.GetText(0), u"alpha");
    EXPECT_EQ(list.FindItemByData(40), 3);
    EXPECT_TRUE(list.SelectByItemData(30));
    EXPECT_EQ(list.GetSelection(), u"charlie");
}

TEST_F(UnicodeList, KeysAndClicksReachTheHost)
{
    Fill();
    PressKey('A', {VK_CONTROL});
    EXPECT_EQ(list.GetSelectedCount(), 4u);
    PressKey('Q');
    EXPECT_EQ(list.keys.back(), UINT{'Q'});
    EXPECT_EQ(list.characters.back(), 'q');
    list.SetCurSel(-1);
    RECT row{};
    list.GetItemRect(1, &row, LVIR_BOUNDS);
    Click(list, POINT{row.left + 5, row.top + 5}, Button::left, Clicks::two);
    EXPECT_EQ(list.selectedAtClick, 1) << "reported after the list has acted";
    EXPECT_EQ(list.doubleClicks, 1);
    list.destroysItself = true;
    PressKey(VK_DELETE);
    EXPECT_EQ(list.GetSafeHwnd(), nullptr);
}

TEST_F(UnicodeList, ASelectedRowIsHighlightedInEachColumnBesideItsMargins)
{
    Fill();
    list.SetCurSel(1);
    RunWaiting();
    EXPECT_TRUE(list.asked.contains({10, 0}) && list.asked.contains({40, 1}));
    RECT row{};
    list.GetItemRect(1, &row, LVIR_BOUNDS);
    CUniRender tallest;
    tallest.CreateFromDescriptor(EditInAWindow::Font(), 1, 0, 0);
    EXPECT_EQ(row.bottom - row.top, tallest.GetHeight());
    const HBITMAP picture = PictureOf(list);
    const HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, picture);
    const auto at = [&](int x, int r) {
        return GetPixel(dc, x, row.top + (row.bottom - row.top) * (2 * r + 1) / 2);
    };
    int header = 0;
    while (at(140, 0) != GetSysColor(COLOR_HIGHLIGHT) && ++header < 60) row.top++, row.bottom++;
    EXPECT_LT(header, 60) << "no highlight below the header";
    EXPECT_EQ(at(290, 0), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_NE(at(151, 0), GetSysColor(COLOR_HIGHLIGHT)) << "between the columns";
    EXPECT_NE(at(140, 1), GetSysColor(COLOR_HIGHLIGHT));
    DeleteDC(dc);
    DeleteObject(picture);
}

} // namespace
