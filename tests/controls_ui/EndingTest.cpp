// Whoever gets a notification may destroy the control that sent it.
#include "Parent.h"

#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/Headers.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/platform/ListViewNotifications.h"
#include "corekit/platform/Painting.h"
#include "corekit/platform/ScrollBars.h"
#include "corekit/platform/StatusBars.h"
#include "corekit/platform/Tabs.h"
#include "corekit/platform/TreeViews.h"

#include <fstream>
#include <sstream>

using namespace corekit::test;

namespace {

struct Case {
    std::string notified, windowClass, script;
    DWORD style = 0;
    UINT message = 0, code = 0;
};

std::vector<Case> casesOf(const char* path)
{
    std::vector<Case> cases;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        std::istringstream columns(line);
        Case c;
        int code = 0;
        columns >> c.notified >> c.windowClass >> c.style >> c.message >> code;
        std::getline(columns >> std::ws, c.script);
        c.code = static_cast<UINT>(code);
        cases.push_back(c);
    }
    return cases;
}

void fill(HWND window, const Case& c)
{
    const std::string& name = c.windowClass;
    char text[] = "text";
    for (WPARAM i = 0; i < 3; ++i) {
        if (name == WC_LISTBOXA) send(window, LB_ADDSTRING, 0, text);
        if (name == WC_COMBOBOXA) send(window, CB_ADDSTRING, 0, text);
        if (name == WC_TREEVIEWA) {
            TVINSERTSTRUCTA what{};
            what.hParent =
                i == 1 ? reinterpret_cast<HTREEITEM>(send(window, TVM_GETNEXTITEM, TVGN_ROOT)) : TVI_ROOT;
            what.item.mask = TVIF_TEXT;
            what.item.pszText = text;
            send(window, TVM_INSERTITEMA, 0, &what);
        }
        if (name == WC_LISTVIEWA) {
            LVCOLUMNA column{LVCF_WIDTH, 0, 80, nullptr, 0, 0, 0, 0};
            if (i == 0) send(window, LVM_INSERTCOLUMNA, 0, &column);
            LVITEMA item{};
            item.mask = LVIF_TEXT;
            item.pszText = text;
            send(window, LVM_INSERTITEMA, 0, &item);
            if (c.style & LVS_OWNERDATA) send(window, LVM_SETITEMCOUNT, 3);
        }
        HDITEMA column{HDI_WIDTH, 60, nullptr, nullptr, 0, 0, 0, 0, 0};
        if (name == WC_HEADERA) send(window, HDM_INSERTITEMA, i, &column);
        TCITEMA tab{};
        tab.mask = TCIF_TEXT;
        tab.pszText = text;
        if (name == WC_TABCONTROLA) send(window, TCM_INSERTITEMA, i, &tab);
    }
    SCROLLINFO info{sizeof info, SIF_RANGE | SIF_PAGE, 0, 100, 10, 0, 0};
    if (name == WC_SCROLLBARA) SetScrollInfo(window, SB_CTL, &info, TRUE);
    if (name == STATUSCLASSNAMEA) send(window, SB_SETTEXTA, SBT_OWNERDRAW, LPARAM{1});
}

void play(HWND window, const std::string& script, HWND elsewhere)
{
    std::istringstream words(script);
    for (std::string word; IsWindow(window) && words >> word;) {
        long long n[4] = {};
        char comma;
        std::istringstream numbers(word.substr(1));
        numbers >> n[0] >> comma >> n[1] >> comma >> n[2] >> comma >> n[3];
        const POINT point{static_cast<LONG>(n[0]), static_cast<LONG>(n[1])};
        const POINT to{static_cast<LONG>(n[2]), static_cast<LONG>(n[3])};
        switch (word[0]) {
        case 'f':
            SetFocus(window);
            break;
        case 'b':
            SetFocus(elsewhere);
            break;
        case 'p':
            InvalidateRect(window, nullptr, TRUE);
            UpdateWindow(window);
            break;
        case 'c':
            Click(window, point);
            break;
        case 'd':
            Click(window, point, Button::left, Clicks::two);
            break;
        case 'r':
            Click(window, point, Button::right);
            break;
        case 'g':
            Drag(window, point, to);
            break;
        case 'k':
            PressKey(static_cast<int>(n[0]));
            break;
        case 't':
            TypeText(std::u16string(1, static_cast<char16_t>(word[1])));
            break;
        case 'w':
            RunFor(static_cast<int>(n[0]));
            break;
        default:
            send(window, static_cast<UINT>(n[0]), static_cast<WPARAM>(n[1]), static_cast<LPARAM>(n[2]));
        }
        RunWaiting();
    }
}

} // namespace

TEST(Controls, EndWithinTheirOwnNotifications)
{
    const auto cases = casesOf(TEST_DATA "/endings.tsv");
    ASSERT_GT(cases.size(), 50u);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.windowClass + " " + c.notified + ": " + c.script);
        Parent parent;
        const HWND elsewhere = parent.add(WC_BUTTONA, "", 0, {210, 10, 250, 30}, 8);
        const HWND window = parent.add(c.windowClass.c_str(), "", c.style, {10, 10, 200, 120});
        fill(window, c);
        RunWaiting();
        parent.hook = [&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
            if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == LVN_ENDLABELEDIT)
                result = 1;
            if (message != c.message) return false;
            const bool isIt = message == WM_COMMAND  ? HIWORD(wParam) == c.code
                              : message == WM_NOTIFY ? reinterpret_cast<NMHDR*>(lParam)->code == c.code
                              : message == WM_VSCROLL || message == WM_HSCROLL ? LOWORD(wParam) == c.code
                                                                               : true;
            if (isIt) DestroyWindow(window);
            return isIt;
        };
        play(window, c.script, elsewhere);
        EXPECT_FALSE(IsWindow(window)) << "never notified";
    }
}
