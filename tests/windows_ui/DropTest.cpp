#include "Recorder.h"

#include "corekit/framework/ui/OleDropTarget.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Memory.h"

#include <gtest/gtest.h>

using namespace corekit::test;
using namespace recorder;

namespace {

std::vector<std::string> NamesIn(HDROP drop)
{
    std::vector<std::string> names;
    for (UINT i = 0; i < DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0); ++i) {
        std::string name(DragQueryFileA(drop, i, nullptr, 0) + 1, 0);
        name.resize(DragQueryFileA(drop, i, name.data(), static_cast<UINT>(name.size())));
        names.push_back(name);
    }
    return names;
}

class Drops : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        answers.clear();
        top = Make(WS_POPUP | WS_VISIBLE, {10, 10, 210, 110});
        RunWaiting();
        received.clear();
    }
    void TearDown() override
    {
        answers.clear();
        if (IsWindow(top)) DestroyWindow(top);
        RunWaiting();
    }
    HWND top = nullptr;
};

// Takes text, and files only at the left; keeps what it hears.
class Target : public COleDropTarget {
public:
    DROPEFFECT OnDragEnter(CWnd*, COleDataObject* data, DWORD, CPoint point) override
    {
        heard += "enter ";
        return Effect(*data, point);
    }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject* data, DWORD keys, CPoint point) override
    {
        heard += keys & MK_LBUTTON ? "over " : "over without a button ";
        return Effect(*data, point);
    }
    void OnDragLeave(CWnd*) override { heard += "leave "; }
    BOOL OnDrop(CWnd* window, COleDataObject* data, DROPEFFECT, CPoint) override
    {
        heard += "drop ";
        if (const auto drop = static_cast<HDROP>(data->GetGlobalData(CF_HDROP))) {
            for (const std::string& name : NamesIn(drop)) heard += name + " ";
            DragFinish(drop);
        }
        if (const HGLOBAL block = data->GetGlobalData(CF_UNICODETEXT)) {
            text = static_cast<const WCHAR*>(GlobalLock(block));
            GlobalUnlock(block);
            GlobalFree(block);
        }
        if (endsWindow) window->DestroyWindow();
        return TRUE;
    }
    static DROPEFFECT Effect(const COleDataObject& data, CPoint point)
    {
        if (data.IsDataAvailable(CF_HDROP)) return point.x < 100 ? DROPEFFECT_COPY : DROPEFFECT_NONE;
        return data.IsDataAvailable(CF_UNICODETEXT) ? DROPEFFECT_COPY : DROPEFFECT_NONE;
    }
    std::string heard;
    std::u16string text;
    bool endsWindow = false;
};

TEST_F(Drops, FilesReachAWindowThatAcceptsThem)
{
    std::vector<std::string> names;
    POINT at{};
    answers[WM_DROPFILES] = [&](HWND, UINT, WPARAM wParam, LPARAM) -> LRESULT {
        const auto drop = reinterpret_cast<HDROP>(wParam);
        names = NamesIn(drop);
        EXPECT_TRUE(DragQueryPoint(drop, &at));
        char start[5];
        EXPECT_EQ(DragQueryFileA(drop, 0, start, sizeof start), 4u);
        EXPECT_STREQ(start, "/tmp");
        DragFinish(drop);
        EXPECT_EQ(DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0), 0u);
        return 0;
    };
    EXPECT_FALSE(DropFiles(top, {20, 30}, {"/tmp/a.txt"})) << "not asked for";
    DragAcceptFiles(top, TRUE);
    EXPECT_TRUE(DropFiles(top, {20, 30}, {"/tmp/a.txt", "/tmp/b c.txt"}));
    EXPECT_EQ(names, (std::vector<std::string>{"/tmp/a.txt", "/tmp/b c.txt"}));
    EXPECT_TRUE(at.x == 20 && at.y == 30);
    EXPECT_FALSE(DropText(top, {20, 30}, u"text"));
    EnableWindow(top, FALSE);
    EXPECT_FALSE(DropFiles(top, {20, 30}, {"/tmp/a.txt"}));
    EXPECT_EQ(Count(WM_DROPFILES), 1);
}

TEST_F(Drops, ATargetHearsOfAllAndMayEndItsWindow)
{
    CWnd window;
    window.Attach(top);
    Target target;
    EXPECT_FALSE(target.Register(nullptr));
    ASSERT_TRUE(target.Register(&window));
    EXPECT_FALSE(target.Register(&window));
    EXPECT_TRUE(DropText(top, {150, 30}, u"\u0645\u0631\u062D\u0628\u0627"));
    EXPECT_EQ(std::exchange(target.heard, {}), "enter over drop ");
    EXPECT_EQ(target.text, u"\u0645\u0631\u062D\u0628\u0627");
    EXPECT_FALSE(DropFiles(top, {150, 30}, {"/tmp/a.txt"}));
    EXPECT_EQ(std::exchange(target.heard, {}), "enter over leave ");
    EXPECT_TRUE(DropFiles(top, {50, 30}, {"/tmp/a.txt"}));
    EXPECT_EQ(std::exchange(target.heard, {}), "enter over drop /tmp/a.txt ");
    DragTextAcross(top, {50, 30}, u"away");
    EXPECT_EQ(std::exchange(target.heard, {}), "enter over leave ");
    target.endsWindow = true;
    EXPECT_TRUE(DropText(top, {50, 30}, u"last"));
    EXPECT_FALSE(IsWindow(top));
    target.Revoke();
}

TEST_F(Drops, AHandleThatIsNoneAnswersNothing)
{
    int number = 0;
    const HDROP wild = reinterpret_cast<HDROP>(&number);
    EXPECT_EQ(DragQueryFileA(wild, 0xFFFFFFFF, nullptr, 0), 0u);
    POINT point{};
    EXPECT_FALSE(DragQueryPoint(wild, &point));
    DragFinish(wild);
    EXPECT_FALSE(corekit::detail::setDropTarget(reinterpret_cast<HWND>(&number), nullptr));
}

} // namespace
