#include "Parent.h"

#include "corekit/platform/Buttons.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/HotKeys.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/platform/ListViewNotifications.h"
#include "corekit/platform/ProgressBars.h"
#include "corekit/platform/Tabs.h"
#include "corekit/platform/TreeViews.h"

#include <cstring>

using namespace corekit::test;

TEST(ListBoxes, SortFindAndSelect)
{
    Parent parent;
    const HWND list = parent.add(WC_LISTBOXA, "", LBS_SORT | LBS_NOTIFY | WS_VSCROLL);
    for (const char* name : {"pear", "Apple", "fig", "apricot"}) send(list, LB_ADDSTRING, 0, name);
    const char* const sorted[] = {"Apple", "apricot", "fig", "pear"};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(rowText(list, LB_GETTEXT, i), sorted[i]);
    EXPECT_EQ(send(list, LB_FINDSTRING, static_cast<WPARAM>(-1), "AP"), 0);
    EXPECT_EQ(send(list, LB_FINDSTRING, 0, "AP"), 1);
    EXPECT_EQ(send(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "ap"), LB_ERR);
    EXPECT_EQ(send(list, LB_SETCURSEL, 1), 1);
    EXPECT_TRUE(parent.notified.empty()) << "a program's own selection notifies nobody";
    RECT row{};
    send(list, LB_GETITEMRECT, 2, &row);
    Click(list, {row.left + 5, (row.top + row.bottom) / 2});
    EXPECT_EQ(send(list, LB_GETCURSEL), 2);
    EXPECT_TRUE(parent.heard(LBN_SELCHANGE));
    EXPECT_EQ(send(list, LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
    SetFocus(list);
    parent.notified.clear();
    PressKey(VK_HOME);
    EXPECT_EQ(send(list, LB_GETCURSEL), 0);
    EXPECT_TRUE(parent.heard(LBN_SELCHANGE));
    EXPECT_EQ(send(list, LB_DELETESTRING, 2), 3);
    EXPECT_EQ(send(list, LB_GETTEXT, 3, "x"), LB_ERR);
}

TEST(ComboBoxes, KeepTypedTextApartFromTheList)
{
    for (const DWORD kind : {CBS_DROPDOWN, CBS_DROPDOWNLIST, CBS_SIMPLE}) {
        Parent parent;
        const HWND combo = parent.add(WC_COMBOBOXA, "", kind);
        for (const char* name : {"one", "two", "three"}) send(combo, CB_ADDSTRING, 0, name);
        EXPECT_EQ(send(combo, CB_GETCURSEL), CB_ERR) << kind;
        EXPECT_EQ(textOf(combo), "") << kind;
        send(combo, CB_SETCURSEL, 1);
        EXPECT_EQ(textOf(combo), "two") << kind;
        EXPECT_TRUE(parent.notified.empty());
        SetFocus(combo);
        parent.notified.clear();
        PressKey(VK_DOWN);
        EXPECT_EQ(send(combo, CB_GETCURSEL), 2) << kind;
        EXPECT_TRUE(parent.heard(CBN_SELCHANGE)) << kind;
        if (kind == CBS_DROPDOWNLIST) continue;
        TypeText(u"x");
        EXPECT_EQ(send(combo, CB_GETCURSEL), CB_ERR) << kind;
        EXPECT_TRUE(parent.heard(CBN_EDITCHANGE)) << kind;
    }
}

// Text that the active code page lacks comes back as it was, also through a procedure in between.
TEST(WideText, SurvivesInRowsAndFields)
{
    const WCHAR* const shin = u"\u05E9\u05DC\u05D5\u05DD";
    Parent parent;
    const struct {
        const char* windowClass;
        DWORD style;
        UINT add, get, length, find;
    } kinds[] = {
        {WC_LISTBOXA, LBS_SORT, LB_ADDSTRING, LB_GETTEXT, LB_GETTEXTLEN, LB_FINDSTRINGEXACT},
        {WC_COMBOBOXA, CBS_DROPDOWN, CB_ADDSTRING, CB_GETLBTEXT, CB_GETLBTEXTLEN, CB_FINDSTRINGEXACT}};
    const auto wide = [](HWND window, UINT message, WPARAM wParam, const void* text) {
        return SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(text));
    };
    for (const auto& kind : kinds) {
        const HWND window = parent.add(kind.windowClass, "", kind.style);
        send(window, kind.add, 0, "Abc");
        EXPECT_EQ(wide(window, kind.add, 0, shin), 1) << kind.windowClass;
        EXPECT_EQ(wide(window, kind.length, 1, nullptr), 4);
        WCHAR row[8] = {};
        EXPECT_EQ(wide(window, kind.get, 1, row), 4);
        EXPECT_EQ(std::u16string_view(row), shin);
        EXPECT_EQ(wide(window, kind.find, static_cast<WPARAM>(-1), shin), 1);
        EXPECT_EQ(send(window, kind.find, static_cast<WPARAM>(-1), "abc"), 0) << "narrow text stays narrow";
    }
    for (const DWORD style : {DWORD{0}, ES_MULTILINE}) {
        const HWND edit = parent.add(WC_EDITA, "", style);
        EXPECT_TRUE(wide(edit, WM_SETTEXT, 0, shin));
        wide(edit, EM_REPLACESEL, 0, u"\u0645");
        EXPECT_EQ(wide(edit, WM_GETTEXTLENGTH, 0, nullptr), 5);
        WCHAR text[8] = {6};
        EXPECT_EQ(wide(edit, EM_GETLINE, 0, text), 5);
        EXPECT_EQ(wide(edit, WM_GETTEXT, 4, text), 3) << "cut to the buffer";
    }
}

TEST(ProgressBars, HoldPositionsInTheirRange)
{
    Parent parent;
    const HWND bar = parent.add(PROGRESS_CLASSA, "", 0);
    SendMessageA(bar, PBM_SETRANGE32, 10, 50);
    send(bar, PBM_SETSTEP, 15);
    EXPECT_EQ(send(bar, PBM_SETPOS, 40), 10);
    EXPECT_EQ(send(bar, PBM_DELTAPOS, 99), 40);
    EXPECT_EQ(send(bar, PBM_GETPOS), 50);
    send(bar, PBM_STEPIT);
    EXPECT_EQ(send(bar, PBM_GETPOS), 25) << "goes on from the beginning";
}

TEST(TreeViews, AskBeforeTheSelectionMovesAndReportAfter)
{
    Parent parent;
    const HWND tree = parent.add(WC_TREEVIEWA, "", TVS_HASBUTTONS | TVS_LINESATROOT | TVS_HASLINES);
    const auto insert = [&](HTREEITEM below, const char* text, LPARAM data) {
        TVINSERTSTRUCTA what{below, TVI_LAST, {}};
        what.item.mask = TVIF_TEXT | TVIF_PARAM;
        what.item.pszText = const_cast<char*>(text);
        what.item.lParam = data;
        return reinterpret_cast<HTREEITEM>(send(tree, TVM_INSERTITEMA, 0, &what));
    };
    const HTREEITEM a = insert(TVI_ROOT, "a", 1), b = insert(a, "b", 2), c = insert(TVI_ROOT, "c", 3);
    ASSERT_TRUE(a && b && c);
    EXPECT_TRUE(send(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(a)));
    const auto selected = [&] {
        return reinterpret_cast<HTREEITEM>(send(tree, TVM_GETNEXTITEM, TVGN_CARET));
    };
    const auto click = [&](HTREEITEM item) {
        RECT rect{};
        std::memcpy(static_cast<void*>(&rect), &item, sizeof item);
        ASSERT_TRUE(send(tree, TVM_GETITEMRECT, TRUE, &rect));
        Click(tree, {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
    };
    parent.notified.clear();
    click(b);
    EXPECT_EQ(selected(), b);
    EXPECT_TRUE(parent.heard(TVN_SELCHANGING) && parent.heard(TVN_SELCHANGED) && parent.heard(NM_CLICK));
    parent.hook = [](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
        result = TRUE;
        return message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == TVN_SELCHANGING;
    };
    click(c);
    EXPECT_EQ(selected(), b) << "refused";
    parent.hook = nullptr;
    SetFocus(tree);
    PressKey(VK_DOWN);
    EXPECT_EQ(selected(), c);
    send(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(a));
    EXPECT_EQ(send(tree, TVM_GETCOUNT), 1);
    EXPECT_EQ(send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(b)), 0) << "a deleted item";
    EXPECT_EQ(selected(), c);
}

TEST(TreeViews, SayWhetherTheyScrolledAndAskBeforeTheyOpenForIt)
{
    Parent parent;
    const HWND tree = parent.add(WC_TREEVIEWA, "", TVS_HASBUTTONS);
    const auto insert = [&](HTREEITEM below) {
        TVINSERTSTRUCTA what{below, TVI_LAST, {}};
        return reinterpret_cast<HTREEITEM>(send(tree, TVM_INSERTITEMA, 0, &what));
    };
    const HTREEITEM first = insert(TVI_ROOT), inner = insert(first);
    HTREEITEM last = nullptr;
    for (int i = 0; i < 50; ++i) last = insert(TVI_ROOT);
    const auto show = [&](HTREEITEM item) {
        parent.notified.clear();
        return send(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    };
    EXPECT_TRUE(show(last));
    EXPECT_FALSE(show(last)) << "in sight";
    EXPECT_FALSE(show(inner)) << "opened";
    EXPECT_TRUE(parent.heard(TVN_ITEMEXPANDING) && parent.heard(TVN_ITEMEXPANDED));
    EXPECT_FALSE(show(inner));
    EXPECT_TRUE(show(last));
}

TEST(ListViews, KeepRowsColumnsAndStates)
{
    Parent parent;
    const HWND list = parent.add(WC_LISTVIEWA, "", LVS_REPORT | LVS_SHOWSELALWAYS);
    send(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LPARAM{LVS_EX_FULLROWSELECT});
    LVCOLUMNA column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 80;
    column.pszText = const_cast<char*>("Name");
    for (const int i : {0, 1}) EXPECT_EQ(send(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(i), &column), i);
    for (int i = 0; i < 5; ++i) {
        const std::string text = "row " + std::to_string(i);
        LVITEMA item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = i;
        item.pszText = const_cast<char*>(text.c_str());
        item.lParam = 10 - i;
        EXPECT_EQ(send(list, LVM_INSERTITEMA, 0, &item), i);
    }
    RunWaiting();
    parent.notified.clear();
    RECT rect{LVIR_BOUNDS, 0, 0, 0};
    ASSERT_TRUE(send(list, LVM_GETITEMRECT, 3, &rect));
    Click(list, {rect.left + 20, (rect.top + rect.bottom) / 2});
    EXPECT_EQ(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 3);
    EXPECT_EQ(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 3);
    EXPECT_TRUE(parent.heard(LVN_ITEMCHANGED) && parent.heard(NM_CLICK));
    send(list, LVM_SORTITEMS, 0,
         reinterpret_cast<const void*>(+[](LPARAM a, LPARAM b, LPARAM) { return static_cast<int>(a - b); }));
    EXPECT_EQ(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1) << "goes with its row";
    char text[32];
    LVITEMA asked{};
    asked.pszText = text;
    asked.cchTextMax = sizeof text;
    EXPECT_EQ(send(list, LVM_GETITEMTEXTA, 0, &asked), 5);
    EXPECT_STREQ(text, "row 4");
    send(list, LVM_DELETEITEM, 0);
    EXPECT_EQ(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 0);
    EXPECT_EQ(send(list, LVM_GETSELECTEDCOUNT), 1);
}

TEST(Tabs, StayWhereTheParentWantsThem)
{
    Parent parent;
    const HWND tabs = parent.add(WC_TABCONTROLA, "", 0, {0, 0, 300, 200});
    for (const int i : {0, 1}) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(i ? "Second" : "First");
        EXPECT_EQ(send(tabs, TCM_INSERTITEMA, static_cast<WPARAM>(i), &item), i);
    }
    EXPECT_EQ(send(tabs, TCM_GETCURSEL), 0);
    EXPECT_TRUE(parent.notified.empty());
    RunWaiting();
    RECT tab{};
    send(tabs, TCM_GETITEMRECT, 1, &tab);
    bool refuses = true;
    parent.hook = [&](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
        result = refuses;
        return message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == TCN_SELCHANGING;
    };
    for (const int expected : {0, 1}) {
        parent.notified.clear();
        Click(tabs, {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2});
        EXPECT_EQ(send(tabs, TCM_GETCURSEL), expected);
        EXPECT_EQ(parent.heard(TCN_SELCHANGE), expected == 1);
        refuses = false;
    }
}

TEST(HotKeys, ShowTheKeyThatIsPressed)
{
    Parent parent;
    const HWND hotKey = parent.add(HOTKEY_CLASSA, "", 0);
    SetFocus(hotKey);
    PressKey('K', {VK_CONTROL, VK_SHIFT});
    EXPECT_EQ(send(hotKey, HKM_GETHOTKEY), MAKEWORD('K', HOTKEYF_CONTROL | HOTKEYF_SHIFT));
    EXPECT_EQ(textOf(hotKey), "Shift + Ctrl + K");
    EXPECT_TRUE(parent.heard(0x300));
}
