// The about box, and a strip of controls at an edge of a frame.
#include "corekit/commands/ui/AboutDialog.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/DialogBar.h"
#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/platform/Libraries.h"
#include "corekit/platform/Statics.h"
#include "corekit/resources/dialogs/Items.h"

#include "Modal.h"

namespace {

using namespace corekit::test;
using namespace corekit::detail;

std::string TextIn(HWND dialog, int id)
{
    char text[256] = "";
    ::GetWindowTextA(::GetDlgItem(dialog, id), text, sizeof text);
    return text;
}

TEST(AboutBox, SaysWhatTheModuleSaysOfItself)
{
    ASSERT_TRUE(StartToolkit(ToolkitDisplay::automatic));
    constexpr ResourceString texts[] = {{9001, "About the tests"}};
    AfxSetResourceStrings(texts);
    std::string caption, description, version;
    bool hasPicture = true;
    Acts acts{[&] {
                  const HWND box = ::GetActiveWindow();
                  char text[64] = "";
                  ::GetWindowTextA(box, text, sizeof text);
                  caption = text;
                  description = TextIn(box, 1003);
                  version = TextIn(box, 1004);
                  hasPicture = ::IsWindowVisible(::GetDlgItem(box, 1002));
              },
              Press(VK_RETURN)};
    // Any address within a module names it.
    const auto library = reinterpret_cast<HINSTANCE>(reinterpret_cast<void*>(&scShowStandardAboutDialog));
    EXPECT_EQ(scShowStandardAboutDialog(library, 0, 9001, nullptr), 1);
    EXPECT_EQ(caption, "About the tests");
    EXPECT_EQ(description, "CoreKit window library");
    EXPECT_FALSE(version.empty());
    EXPECT_FALSE(hasPicture);
    EXPECT_EQ(scShowStandardAboutDialog(nullptr, 0, 9001, nullptr), 0)
        << "this program has no version record";
    AfxSetResourceStrings({});
}

constexpr DialogItem barItems[] = {
    dialogs::edit(10, {4, 4, 60, 12}),
    dialogs::button(11, "&Go", {68, 4, 30, 12}),
    dialogs::button(12, "&Never", {102, 4, 30, 12}),
};
constexpr DialogTemplate barTemplates[] = {{700, "", 140, 20, 0, barItems}};

class Host : public CFrameWnd {
public:
    int went = 0;

protected:
    void OnGo() { ++went; }
    void OnUpdateNever(CCmdUI* item) { item->Enable(FALSE); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Host, CFrameWnd)
ON_COMMAND(11, &Host::OnGo)
ON_COMMAND(12, &Host::OnGo)
ON_UPDATE_COMMAND_UI(12, &Host::OnUpdateNever)
END_MESSAGE_MAP()

TEST(DialogBar, ItsControlsAreReachedByKeysAndFollowTheFrame)
{
    ASSERT_TRUE(StartToolkit(ToolkitDisplay::automatic));
    AfxSetDialogTemplates(barTemplates);
    auto* const frame = new Host;
    const CRect place(50, 50, 450, 350);
    ASSERT_TRUE(frame->Create(nullptr, "host", WS_OVERLAPPEDWINDOW, &place));
    CDialogBar bar;
    EXPECT_FALSE(bar.Create(frame, 701u, WS_VISIBLE | CBRS_TOP, 900));
    ASSERT_TRUE(bar.Create(frame, 700u, WS_VISIBLE | CBRS_TOP, 900));
    frame->ShowWindow(SW_SHOW);
    frame->RecalcLayout();
    frame->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE);
    RunWaiting();
    CRect at, client;
    bar.GetWindowRect(&at);
    frame->GetClientRect(&client);
    frame->ClientToScreen(&client);
    EXPECT_EQ(at.TopLeft(), client.TopLeft());
    EXPECT_EQ(at.Height(), bar.m_sizeDefault.cy);
    EXPECT_FALSE(bar.GetDlgItem(12)->IsWindowEnabled());
    bar.GetDlgItem(10)->SetFocus();
    TypeText(u"story");
    PressKey(VK_TAB);
    EXPECT_EQ(::GetFocus(), bar.GetDlgItem(11)->m_hWnd);
    PressKey(VK_SPACE);
    PressKey('G', {VK_MENU});
    EXPECT_EQ(frame->went, 2);
    EXPECT_EQ(TextIn(bar.m_hWnd, 10), "story");
    bar.SetOwner(nullptr); // the frame is its parent still
    Click(bar.GetDlgItem(11)->m_hWnd, {8, 8});
    EXPECT_EQ(frame->went, 3);
    frame->DestroyWindow();
    AfxSetDialogTemplates({});
}

} // namespace
