// Lists whose rows the parent draws, marks, gives on demand, or lets the user name.
#include "Parent.h"

#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/ImageLists.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/platform/ListViewNotifications.h"
#include "corekit/platform/Painting.h"

#include <map>
#include <set>

using namespace corekit::test;

namespace {

// Draws each row in the colour that is its data, with a height that grows by the data.
class Drawer {
public:
    explicit Drawer(Parent& parent)
    {
        parent.hook = [this](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
            if (message == WM_MEASUREITEM) {
                auto& row = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
                row.itemHeight = 20 + static_cast<UINT>(row.itemData & 0xFF);
            } else if (message == WM_COMPAREITEM) {
                const auto& rows = *reinterpret_cast<const COMPAREITEMSTRUCT*>(lParam);
                result = rows.itemData1 < rows.itemData2 ? -1 : rows.itemData1 > rows.itemData2;
            } else if (message == WM_DELETEITEM)
                gone.insert(reinterpret_cast<const DELETEITEMSTRUCT*>(lParam)->itemData);
            else if (message == WM_DRAWITEM)
                draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            else
                return false;
            if (!result) result = message != WM_COMPAREITEM;
            return true;
        };
    }
    std::map<UINT, UINT> drawn; // states by row
    std::set<UINT_PTR> gone;

private:
    void draw(const DRAWITEMSTRUCT& row)
    {
        drawn[row.itemID] = row.itemState;
        const HBRUSH brush = CreateSolidBrush(RGB(row.itemData & 0xFF, 0, 200));
        FillRect(row.hDC, &row.rcItem, brush);
        DeleteObject(brush);
    }
};

COLORREF pixelOf(HWND window, int x, int y)
{
    const HBITMAP picture = PictureOf(window);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ former = SelectObject(dc, picture);
    const COLORREF colour = GetPixel(dc, x, y);
    SelectObject(dc, former);
    DeleteDC(dc);
    DeleteObject(picture);
    return colour;
}

} // namespace

TEST(DrawnRows, OfListBoxesAreMeasuredSortedAndDrawn)
{
    Parent parent;
    Drawer drawer(parent);
    const HWND list = parent.add(WC_LISTBOXA, "", LBS_OWNERDRAWVARIABLE | LBS_SORT | LBS_NOTIFY);
    for (const LPARAM data : {30, 10, 20}) send(list, LB_ADDSTRING, 0, data);
    RunWaiting();
    int top = 0;
    for (const int i : {0, 1, 2}) {
        EXPECT_EQ(send(list, LB_GETITEMDATA, static_cast<WPARAM>(i)), 10 * (i + 1));
        RECT row{};
        send(list, LB_GETITEMRECT, static_cast<WPARAM>(i), &row);
        EXPECT_EQ(row.top, top);
        EXPECT_EQ(row.bottom - row.top, 20 + 10 * (i + 1));
        EXPECT_EQ(pixelOf(list, row.left + 5, row.top + 5), RGB(10 * (i + 1), 0, 200));
        top = row.bottom;
    }
    drawer.drawn.clear();
    Click(list, {20, 35});
    EXPECT_EQ(send(list, LB_GETCURSEL), 1);
    EXPECT_EQ(drawer.drawn[1] & (ODS_SELECTED | ODS_FOCUS), ODS_SELECTED | ODS_FOCUS);
    send(list, LB_DELETESTRING, 0);
    EXPECT_EQ(drawer.gone, (std::set<UINT_PTR>{10}));
    DestroyWindow(list);
    EXPECT_EQ(drawer.gone, (std::set<UINT_PTR>{10, 20, 30}));
}

TEST(DrawnRows, OfComboBoxesAndReportsAreDrawn)
{
    Parent parent;
    Drawer drawer(parent);
    const HWND combo = parent.add(WC_COMBOBOXA, "", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED);
    for (const LPARAM data : {1, 2}) send(combo, CB_ADDSTRING, 0, data);
    EXPECT_EQ(send(combo, CB_GETITEMHEIGHT, 0), 20);
    send(combo, CB_SETCURSEL, 1);
    EXPECT_EQ(pixelOf(combo, 60, 10), RGB(2, 0, 200));
    EXPECT_EQ(drawer.drawn[1] & ODS_COMBOBOXEDIT, ODS_COMBOBOXEDIT);
    drawer.drawn.clear();
    send(combo, CB_SHOWDROPDOWN, 1);
    RunFor(300);
    EXPECT_EQ(drawer.drawn.size(), 2u);
    send(combo, CB_SHOWDROPDOWN, 0);

    const HWND report = parent.add(WC_LISTVIEWA, "", LVS_REPORT | LVS_OWNERDRAWFIXED, {10, 130, 200, 260}, 9);
    LVCOLUMNA column{LVCF_WIDTH, 0, 80, nullptr, 0, 0, 0, 0};
    send(report, LVM_INSERTCOLUMNA, 0, &column);
    LVITEMA item{};
    item.mask = LVIF_PARAM;
    item.lParam = 7;
    send(report, LVM_INSERTITEMA, 0, &item);
    RunWaiting();
    RECT row{LVIR_BOUNDS, 0, 0, 0};
    ASSERT_TRUE(send(report, LVM_GETITEMRECT, 0, &row));
    EXPECT_EQ(row.bottom - row.top, 20);
    MapWindowPoints(report, parent.window(), reinterpret_cast<POINT*>(&row), 2);
    EXPECT_EQ(pixelOf(parent.window(), row.left + 40, row.top + 5), RGB(7, 0, 200));
}

TEST(ListBoxes, RunOverSeveralColumnsWithSeveralRowsSelected)
{
    Parent parent;
    const HWND list =
        parent.add(WC_LISTBOXA, "", LBS_MULTICOLUMN | LBS_EXTENDEDSEL | LBS_NOTIFY | WS_HSCROLL);
    send(list, LB_SETCOLUMNWIDTH, 60);
    for (int i = 0; i < 12; ++i) send(list, LB_ADDSTRING, 0, std::to_string(i).c_str());
    RunWaiting();
    RECT first{}, last{};
    send(list, LB_GETITEMRECT, 0, &first);
    send(list, LB_GETITEMRECT, 11, &last);
    EXPECT_EQ(first.right - first.left, 60);
    ASSERT_GE(last.left, 60) << "in another column";
    const POINT inLast{last.left + 10, (last.top + last.bottom) / 2};
    EXPECT_EQ(send(list, LB_ITEMFROMPOINT, 0, MAKELONG(inLast.x, inLast.y)), 11);
    Click(list, {first.left + 10, 5});
    Click(list, inLast, Button::left, Clicks::one, {VK_CONTROL});
    int rows[12] = {};
    EXPECT_EQ(send(list, LB_GETSELITEMS, 12, rows), 2);
    EXPECT_TRUE(rows[0] == 0 && rows[1] == 11);
    Click(list, {first.left + 10, 5});
    Click(list, inLast, Button::left, Clicks::one, {VK_SHIFT});
    EXPECT_EQ(send(list, LB_GETSELCOUNT), 12);
    send(list, LB_SETSEL, 0, LPARAM{3});
    EXPECT_EQ(send(list, LB_GETSEL, 3), 0);
    EXPECT_EQ(send(list, LB_GETSELCOUNT), 11);
}

TEST(CheckLists, AreMarkedBySpaceAndClick)
{
    Parent parent;
    const HWND list = parent.add(WC_LISTBOXA, "", LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS);
    for (const char* name : {"one", "two", "three"}) send(list, LB_ADDSTRING, 0, name);
    send(list, CLB_SETCHECK, 2, LPARAM{1});
    parent.hook = [](UINT message, WPARAM, LPARAM, LRESULT&) {
        EXPECT_NE(message, WM_DRAWITEM) << "such a list draws its rows";
        return false;
    };
    RunWaiting();
    send(list, CLB_ENABLE, 1, LPARAM{0});
    SetFocus(list);
    send(list, LB_SETCURSEL, 0);
    parent.notified.clear();
    PressKey(VK_SPACE);
    EXPECT_TRUE(parent.heard(CLBN_CHKCHANGE));
    EXPECT_EQ(send(list, CLB_GETCHECK, 0), 1);
    for (const int i : {1, 2}) {
        RECT row{};
        send(list, LB_GETITEMRECT, static_cast<WPARAM>(i), &row);
        Click(list, {row.left + 8, (row.top + row.bottom) / 2});
        EXPECT_EQ(send(list, CLB_GETCHECK, static_cast<WPARAM>(i)), 0) << "greyed, or cleared by the click";
    }
}

TEST(ListViews, AskForTheRowsOnShowOnly)
{
    Parent parent;
    const HWND list = parent.add(WC_LISTVIEWA, "", LVS_REPORT | LVS_OWNERDATA);
    LVCOLUMNA column{LVCF_WIDTH, 0, 80, nullptr, 0, 0, 0, 0};
    send(list, LVM_INSERTCOLUMNA, 0, &column);
    std::set<int> asked;
    int searchedFrom = -1;
    parent.hook = [&](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
        if (message != WM_NOTIFY) return false;
        auto& info = *reinterpret_cast<NMLVDISPINFOA*>(lParam);
        if (info.hdr.code == LVN_GETDISPINFO) {
            asked.insert(info.item.iItem);
            snprintf(info.item.pszText, 20, "row %d", info.item.iItem);
        } else if (info.hdr.code == LVN_ODFINDITEM) {
            searchedFrom = reinterpret_cast<const NMLVFINDITEMA*>(lParam)->iStart;
            result = 90000;
        }
        return info.hdr.code == LVN_ODFINDITEM;
    };
    send(list, LVM_SETITEMCOUNT, 100000);
    RunWaiting();
    EXPECT_TRUE(!asked.empty() && asked.size() < 50);
    SetFocus(list);
    PressKey(VK_END);
    EXPECT_EQ(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 99999);
    EXPECT_TRUE(asked.contains(99999));
    asked.clear();
    TypeText(u"r");
    EXPECT_EQ(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 90000);
    EXPECT_EQ(searchedFrom, 100000);
    EXPECT_LT(asked.size(), 100u);
    PressKey('A', {VK_CONTROL});
    EXPECT_EQ(send(list, LVM_GETSELECTEDCOUNT), 100000);
    EXPECT_TRUE(parent.heard(LVN_ODSTATECHANGED));
}

TEST(ListViews, ShowThePicturesTheyAreGivenAndAskFor)
{
    const auto imagesOf = [](std::initializer_list<COLORREF> colours) {
        const HIMAGELIST list = ImageList_Create(16, 16, ILC_COLOR32, 2, 0);
        for (const COLORREF colour : colours) {
            const HDC screen = GetDC(nullptr), dc = CreateCompatibleDC(nullptr);
            const HBITMAP square = CreateCompatibleBitmap(screen, 16, 16);
            const HGDIOBJ former = SelectObject(dc, square);
            const HBRUSH brush = CreateSolidBrush(colour);
            const RECT all{0, 0, 16, 16};
            FillRect(dc, &all, brush);
            SelectObject(dc, former);
            ImageList_Add(list, square, nullptr);
            DeleteObject(brush);
            DeleteObject(square);
            DeleteDC(dc);
            ReleaseDC(nullptr, screen);
        }
        return list;
    };
    constexpr COLORREF red = RGB(250, 0, 0), blue = RGB(0, 0, 250), green = RGB(0, 250, 0);
    const HIMAGELIST small = imagesOf({red, blue}), state = imagesOf({green});
    for (const DWORD kind : {DWORD{0}, LVS_OWNERDATA}) {
        Parent parent;
        const HWND list = parent.add(WC_LISTVIEWA, "", LVS_REPORT | LVS_NOCOLUMNHEADER | kind);
        LVCOLUMNA column{LVCF_WIDTH, 0, 120, nullptr, 0, 0, 0, 0};
        send(list, LVM_INSERTCOLUMNA, 0, &column);
        send(list, LVM_SETIMAGELIST, LVSIL_SMALL, small);
        parent.hook = [](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
            auto& info = *reinterpret_cast<NMLVDISPINFOA*>(lParam);
            if (message == WM_NOTIFY && info.hdr.code == LVN_GETDISPINFO && info.item.mask & LVIF_IMAGE)
                info.item.iImage = 1;
            return false;
        };
        LVITEMA item{};
        item.mask = LVIF_IMAGE;
        item.iImage = -1; // asked for
        if (kind)
            send(list, LVM_SETITEMCOUNT, 1);
        else
            send(list, LVM_INSERTITEMA, 0, &item);
        send(list, LVM_GETITEMA, 0, &item);
        EXPECT_EQ(item.iImage, 1);
        const auto pixelAt = [&](int x) {
            RunWaiting();
            RECT icon{LVIR_ICON, 0, 0, 0};
            EXPECT_TRUE(send(list, LVM_GETITEMRECT, 0, &icon));
            return pixelOf(list, icon.left + x, (icon.top + icon.bottom) / 2);
        };
        EXPECT_EQ(pixelAt(8), blue);
        send(list, LVM_SETIMAGELIST, LVSIL_STATE, state);
        item.state = INDEXTOSTATEIMAGEMASK(1);
        item.stateMask = LVIS_STATEIMAGEMASK;
        send(list, LVM_SETITEMSTATE, 0, &item);
        EXPECT_EQ(pixelAt(8), green);
        EXPECT_EQ(pixelAt(24), blue);
    }
    ImageList_Destroy(small);
    ImageList_Destroy(state);
}

TEST(ListViews, LetTheUserNameIconsAndRows)
{
    for (const DWORD kind : {LVS_ICON, LVS_SMALLICON, LVS_LIST, LVS_REPORT}) {
        SCOPED_TRACE(kind);
        Parent parent;
        const HWND list = parent.add(WC_LISTVIEWA, "", kind | LVS_EDITLABELS, {10, 10, 300, 200});
        LVCOLUMNA column{LVCF_WIDTH, 0, 80, nullptr, 0, 0, 0, 0};
        send(list, LVM_INSERTCOLUMNA, 0, &column);
        for (const int i : {0, 1, 2}) {
            LVITEMA item{};
            item.mask = LVIF_TEXT;
            item.iItem = i;
            item.pszText = const_cast<char*>("name");
            send(list, LVM_INSERTITEMA, 0, &item);
        }
        bool takes = true;
        std::string last;
        parent.hook = [&](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
            if (message != WM_NOTIFY || reinterpret_cast<NMHDR*>(lParam)->code != LVN_ENDLABELEDIT)
                return false;
            const char* const text = reinterpret_cast<NMLVDISPINFOA*>(lParam)->item.pszText;
            last = text ? text : "(dropped)";
            result = takes;
            return true;
        };
        const auto textAt = [&](int row) {
            char text[32] = {};
            LVITEMA asked{};
            asked.pszText = text;
            asked.cchTextMax = sizeof text;
            send(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), &asked);
            return std::string(text);
        };
        RunWaiting();
        RECT row{LVIR_BOUNDS, 0, 0, 0};
        ASSERT_TRUE(send(list, LVM_GETITEMRECT, 1, &row));
        Click(list, {(row.left + row.right) / 2, row.bottom - 5});
        EXPECT_EQ(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 1);
        struct Case {
            int key;
            bool takes;
            const char *notified, *text;
        };
        for (const Case& c : {Case{VK_RETURN, true, "x", "x"}, Case{VK_ESCAPE, true, "(dropped)", "x"},
                              Case{VK_RETURN, false, "x", "x"}}) {
            takes = c.takes;
            const auto edit = reinterpret_cast<HWND>(send(list, LVM_EDITLABELA, 1));
            ASSERT_NE(edit, nullptr);
            EXPECT_EQ(reinterpret_cast<HWND>(send(list, LVM_GETEDITCONTROL)), edit);
            EXPECT_EQ(GetFocus(), edit);
            TypeText(u"x");
            PressKey(c.key);
            EXPECT_EQ(last, c.notified);
            EXPECT_EQ(textAt(1), c.text);
            EXPECT_FALSE(IsWindow(edit));
            EXPECT_EQ(GetFocus(), list);
        }
        EXPECT_EQ(textAt(0), "name");
    }
}

TEST(Edits, WrapWhereNothingElseIsAskedFor)
{
    Parent parent;
    const HWND edit = parent.add(WC_EDITA, "", ES_MULTILINE | WS_VSCROLL, {10, 10, 110, 90});
    std::string words;
    for (int i = 0; i < 30; ++i) words += "word ";
    SetWindowTextA(edit, (words + "\r\nlast").c_str());
    RunWaiting();
    const LRESULT lines = send(edit, EM_GETLINECOUNT);
    EXPECT_GT(lines, 10);
    EXPECT_EQ(send(edit, EM_LINEINDEX, static_cast<WPARAM>(lines - 1)),
              static_cast<LRESULT>(words.size() + 2));
    LRESULT sum = 0;
    for (LRESULT line = 0; line + 1 < lines; ++line)
        sum += send(edit, EM_LINELENGTH,
                    static_cast<WPARAM>(send(edit, EM_LINEINDEX, static_cast<WPARAM>(line))));
    EXPECT_EQ(sum, static_cast<LRESULT>(words.size())) << "lines join without a gap";
    SetFocus(edit);
    PressKey(VK_DOWN);
    PressKey(VK_HOME);
    const LRESULT second = send(edit, EM_LINEINDEX, 1);
    EXPECT_EQ(send(edit, EM_GETSEL), MAKELONG(second, second));
    const auto place = static_cast<DWORD>(send(edit, EM_POSFROMCHAR, static_cast<WPARAM>(second + 1)));
    EXPECT_EQ(send(edit, EM_CHARFROMPOS, 0, static_cast<LPARAM>(place + (3u << 16))),
              MAKELONG(second + 1, 1));
    TypeText(u"x");
    EXPECT_EQ(textOf(edit).size(), words.size() + 7);
    PressKey(VK_END, {VK_CONTROL});
    EXPECT_GT(send(edit, EM_GETFIRSTVISIBLELINE), 3);
    EXPECT_TRUE(parent.heard(EN_VSCROLL));
}
