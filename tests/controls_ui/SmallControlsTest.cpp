// Up-down, tool tip, status bar, header, scroll bar and lists of pictures, as a user and a program meet them.
#include "Parent.h"

#include "corekit/platform/Edits.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Headers.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/ScrollBars.h"
#include "corekit/platform/StatusBars.h"
#include "corekit/platform/ToolTips.h"
#include "corekit/platform/UpDowns.h"

#include <QApplication>
#include <QLocale>
#include <QWidget>

using namespace corekit::test;

TEST(UpDowns, CountInTheirBuddy)
{
    struct Case {
        DWORD style;
        int low, high, base;
        const char* typed;
        const char* presses; // u and d the arrows, U and D the keys
        const char* text;
        const char* language = "C";
    };
    constexpr DWORD usual = UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_ALIGNRIGHT | UDS_ARROWKEYS;
    const Case cases[] = {
        {usual, 0, 10, 10, "5", "u", "6"},
        {usual, 0, 10, 10, "5", "dd", "3"},
        {usual, 0, 10, 10, "9", "uuu", "10"},
        {usual | UDS_WRAP, 0, 10, 10, "9", "uuu", "1"},
        {usual | UDS_WRAP, 0, 10, 10, "0", "d", "10"},
        {usual, 10, 0, 10, "5", "u", "4"},
        {usual, -5, 5, 10, "-3", "dd", "-5"},
        {usual, 0, 10, 10, "5", "UUD", "6"},
        {usual & ~UDS_ARROWKEYS, 0, 10, 10, "5", "UUD", "5"},
        {usual, 0, 10, 10, "none", "u", "1"},
        {usual | UDS_NOTHOUSANDS, 0, 9999, 10, "1999", "u", "2000"},
        {usual, 0, 255, 16, "0x00FE", "u", "0x00FF"},
        {usual, -9999, 9999, 10, "-1.999", "d", "-2.000", "de_DE"},
        {usual, 0, 9999, 10, "1 999", "u", "2 000", "fr_FR"},      // its narrow space is in no code page
        {usual, -9999, 9999, 10, "-1998", "d", "-1,999", "ar_EG"}, // nor are these digits and this sign
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.typed) + " " + c.presses);
        QLocale::setDefault(QLocale(QString::fromLatin1(c.language)));
        Parent parent;
        const HWND buddy = parent.add(WC_EDITA, "", 0, {10, 10, 110, 40}, 6);
        const HWND arrows = parent.add(UPDOWN_CLASSA, "", c.style, {0, 0, 0, 0});
        ASSERT_EQ(send(arrows, UDM_GETBUDDY), reinterpret_cast<LRESULT>(buddy));
        SendMessageA(arrows, UDM_SETRANGE32, static_cast<WPARAM>(c.low), c.high);
        send(arrows, UDM_SETPOS32, 0, LPARAM{0});
        send(arrows, UDM_SETBASE, static_cast<WPARAM>(c.base));
        SetWindowTextA(buddy, c.typed);
        SetFocus(buddy);
        RECT size{};
        GetClientRect(arrows, &size);
        for (const char* press = c.presses; *press; ++press) {
            if (*press == 'U' || *press == 'D') PressKey(*press == 'U' ? VK_UP : VK_DOWN);
            if (*press == 'u') Click(arrows, {size.right / 2, size.bottom / 4});
            if (*press == 'd') Click(arrows, {size.right / 2, size.bottom * 3 / 4});
        }
        EXPECT_EQ(textOf(buddy), c.text);
        EXPECT_EQ(GetFocus(), buddy);
        RECT first{}, second{};
        GetWindowRect(buddy, &first);
        GetWindowRect(arrows, &second);
        EXPECT_TRUE(first.right == second.left && second.right - first.left == 100) << "in its place";
    }
    QLocale::setDefault(QLocale::c());
}

TEST(ToolTips, AskForTheirTextWhereThePointerRests)
{
    Parent parent;
    const HWND tool = parent.add(WC_STATICA, "", 0x100);
    const HWND tip = CreateWindowExA(0, TOOLTIPS_CLASSA, "", WS_POPUP, 0, 0, 0, 0, parent.window(), nullptr,
                                     nullptr, nullptr);
    TOOLINFOA info{};
    info.cbSize = sizeof info;
    info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    info.hwnd = parent.window();
    info.uId = reinterpret_cast<UINT_PTR>(tool);
    info.lpszText = LPSTR_TEXTCALLBACK;
    EXPECT_TRUE(send(tip, TTM_ADDTOOLA, 0, &info));
    bool ends = false;
    parent.hook = [&](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        auto* const header = reinterpret_cast<NMHDR*>(lParam);
        if (message != WM_NOTIFY || header->hwndFrom != tip) return false;
        if (header->code == TTN_GETDISPINFO)
            strcpy(reinterpret_cast<NMTTDISPINFOA*>(lParam)->szText, "<b>&Tip");
        if (ends) DestroyWindow(tip);
        return true;
    };
    MoveMouse(tool, {20, 20});
    RunFor(1500);
    EXPECT_TRUE(parent.heard(TTN_GETDISPINFO) && parent.heard(TTN_SHOW));
    char text[32] = {};
    info.lpszText = text;
    send(tip, TTM_GETTEXTA, sizeof text, &info);
    EXPECT_STREQ(text, "<b>&Tip");
    send(tip, TTM_POP);
    ends = true;
    send(tip, TTM_TRACKACTIVATE, 1, &info);
    EXPECT_FALSE(IsWindow(tip));
}

TEST(StatusBars, LieBelowAndKeepTheirParts)
{
    Parent parent;
    const HWND bar = parent.add(STATUSCLASSNAMEA, "first", SBARS_SIZEGRIP);
    const int rights[] = {100, 250, -1};
    EXPECT_TRUE(send(bar, SB_SETPARTS, 3, rights));
    EXPECT_TRUE(send(bar, SB_SETTEXTA, 1 | SBT_NOBORDERS, "\tsecond"));
    EXPECT_FALSE(send(bar, SB_SETTEXTA, 3, "beyond"));
    for (const int width : {500, 300}) {
        MoveWindow(parent.window(), 0, 0, width, 200, TRUE);
        RECT client{}, place{};
        GetClientRect(parent.window(), &client);
        send(bar, WM_SIZE);
        GetWindowRect(bar, &place);
        MapWindowPoints(nullptr, parent.window(), reinterpret_cast<POINT*>(&place), 2);
        EXPECT_TRUE(place.left == 0 && place.right == client.right && place.bottom == client.bottom);
        RECT part{};
        ASSERT_TRUE(send(bar, SB_GETRECT, 1, &part));
        EXPECT_TRUE(part.left >= 100 && part.right == 250);
    }
    char text[32] = {};
    EXPECT_EQ(send(bar, SB_GETTEXTA, 1, text), MAKELONG(7, SBT_NOBORDERS));
    EXPECT_STREQ(text, "\tsecond");
    EXPECT_EQ(textOf(bar), "first");
    send(bar, SB_SIMPLE, 1);
    send(bar, SB_SETTEXTA, SB_SIMPLEID, "simple");
    EXPECT_EQ(send(bar, SB_GETTEXTA, 0, text), 5) << "parts stay behind the one text";
}

TEST(Headers, AreDraggedWiderAndToOtherPlaces)
{
    Parent parent;
    const HWND header = parent.add(WC_HEADERA, "", HDS_BUTTONS | HDS_DRAGDROP, {0, 0, 300, 24});
    for (int i = 0; i < 3; ++i) {
        HDITEMA item{HDI_WIDTH | HDI_LPARAM, 60, nullptr, nullptr, 0, 0, i, 0, 0};
        EXPECT_EQ(send(header, HDM_INSERTITEMA, 9, &item), i);
    }
    RunWaiting();
    parent.notified.clear();
    struct Case {
        POINT from, to;
        UINT notified;
        int width, order[3];
    };
    const Case cases[] = {
        {{20, 10}, {20, 10}, HDN_ITEMCLICK, 60, {0, 1, 2}},
        {{59, 10}, {89, 10}, HDN_ITEMCHANGED, 90, {0, 1, 2}},
        {{20, 10}, {140, 10}, HDN_ENDDRAG, 90, {1, 0, 2}},
    };
    for (const Case& c : cases) {
        parent.notified.clear();
        Drag(header, c.from, c.to);
        EXPECT_TRUE(parent.heard(c.notified));
        HDITEMA item{HDI_WIDTH, 0, nullptr, nullptr, 0, 0, 0, 0, 0};
        send(header, HDM_GETITEMA, 0, &item);
        EXPECT_NEAR(item.cxy, c.width, 2);
        int order[3] = {};
        EXPECT_TRUE(send(header, HDM_GETORDERARRAY, 3, order));
        for (int i = 0; i < 3; ++i) EXPECT_EQ(order[i], c.order[i]);
    }
    HDHITTESTINFO hit{{10, 10}, 0, 0};
    EXPECT_EQ(send(header, HDM_HITTEST, 0, &hit), 1) << "the first from the left now";
    const int wrong[] = {0, 0, 1};
    EXPECT_FALSE(send(header, HDM_SETORDERARRAY, 3, wrong));
}

TEST(ScrollBarControls, ReportWhatTheUserDidAndStay)
{
    Parent parent;
    const HWND bar = parent.add(WC_SCROLLBARA, "", 1, {10, 10, 30, 210});
    SCROLLINFO info{sizeof info, SIF_RANGE | SIF_PAGE | SIF_POS, 0, 100000, 1000, 50000, 0};
    SetScrollInfo(bar, SB_CTL, &info, TRUE);
    std::vector<int> codes;
    int tracked = 0;
    parent.hook = [&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
        if (message != WM_VSCROLL || reinterpret_cast<HWND>(lParam) != bar) return false;
        codes.push_back(LOWORD(wParam));
        SCROLLINFO now{sizeof now, SIF_TRACKPOS, 0, 0, 0, 0, 0};
        GetScrollInfo(bar, SB_CTL, &now);
        if (LOWORD(wParam) == SB_THUMBTRACK) tracked = now.nTrackPos;
        return true;
    };
    const auto notified = [&](int code) { return std::ranges::find(codes, code) != codes.end(); };
    SetFocus(bar);
    PressKey(VK_DOWN);
    EXPECT_TRUE(notified(SB_LINEDOWN));
    PressKey(VK_PRIOR);
    EXPECT_TRUE(notified(SB_PAGEUP));
    EXPECT_EQ(GetScrollPos(bar, SB_CTL), 50000) << "until the program moves it";
    Drag(bar, {10, 100}, {10, 150});
    EXPECT_TRUE(notified(SB_THUMBTRACK) && notified(SB_THUMBPOSITION) && notified(SB_ENDSCROLL));
    EXPECT_GT(tracked, 65536) << "whole, where a message has 16 bits";
    SetScrollPos(bar, SB_CTL, 200000, TRUE);
    EXPECT_EQ(GetScrollPos(bar, SB_CTL), 100000 - 1000 + 1);
}

TEST(ImageLists, CutStripsAndFollowThePointer)
{
    std::vector<DWORD> pixels(20 * 8, 0xFF0000FF);
    for (std::size_t i = 0; i < pixels.size(); i += 2) pixels[i] = 0xFFFF00FF;
    const HBITMAP strip = CreateBitmap(20, 8, 1, 32, pixels.data());
    const HIMAGELIST list = ImageList_Create(8, 8, ILC_COLOR32 | ILC_MASK, 2, 2);
    EXPECT_EQ(ImageList_AddMasked(list, strip, RGB(255, 0, 255)), 0);
    EXPECT_EQ(ImageList_GetImageCount(list), 2) << "what is left at the right is dropped";
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP surface = CreateBitmap(8, 8, 1, 32, nullptr);
    const HGDIOBJ former = SelectObject(dc, surface);
    PatBlt(dc, 0, 0, 8, 8, WHITENESS);
    EXPECT_TRUE(ImageList_Draw(list, 1, dc, 0, 0, ILD_TRANSPARENT));
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(dc, 1, 0), RGB(0, 0, 255));
    EXPECT_FALSE(ImageList_Draw(list, 2, dc, 0, 0, ILD_TRANSPARENT));
    SelectObject(dc, former);
    Parent parent;
    const auto pictures = [] {
        int shown = 0;
        for (const QWidget* const top : QApplication::topLevelWidgets())
            shown += top->isVisible() && top->windowFlags().testFlag(Qt::WindowTransparentForInput);
        return shown;
    };
    EXPECT_FALSE(ImageList_DragEnter(parent.window(), 0, 0));
    ASSERT_TRUE(ImageList_BeginDrag(list, 0, 2, 2));
    EXPECT_FALSE(ImageList_BeginDrag(list, 0, 2, 2)) << "one at a time";
    EXPECT_EQ(ImageList_DragEnter(parent.window(), 10, 10) + pictures(), 2);
    ImageList_DragShowNolock(FALSE);
    EXPECT_EQ(pictures(), 0);
    ImageList_DragShowNolock(TRUE);
    EXPECT_TRUE(ImageList_Destroy(list)) << "the drag has its own copy";
    EXPECT_EQ(ImageList_DragMove(20, 20) + pictures(), 2);
    ImageList_EndDrag();
    EXPECT_EQ(pictures(), 0);
    EXPECT_EQ(ImageList_GetImageCount(list), 0);
    DeleteDC(dc);
    DeleteObject(surface);
    DeleteObject(strip);
}
