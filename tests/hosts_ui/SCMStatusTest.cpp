#include "corekit/foundation/ChainedException.h"
#include "corekit/hosts/ui/DLG_SCMStatus.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Statics.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/resources/Messages.h"

#include <gtest/gtest.h>

namespace {

class SCMStatus : public testing::Test {
protected:
    static void SetUpTestSuite() { StartToolkit(ToolkitDisplay::offscreen); } // the dialog loads its icons
    SCMStatus()
    {
        owner.CreateEx(0, AfxRegisterWndClass(0), "Owner", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                       nullptr);
    }

    CString Line()
    {
        CString text;
        dialog.GetDlgItemText(1002, text);
        return text;
    }
    HICON Icon() { return reinterpret_cast<HICON>(dialog.SendDlgItemMessage(1057, STM_GETICON)); }
    static HICON Step(WORD step)
    {
        return LoadIconA(nullptr, MAKEINTRESOURCEA(static_cast<WORD>(4021 + step)));
    }

    CWnd owner;
    DLG_SCMStatus dialog{message::serviceOpenFailed};
};

TEST_F(SCMStatus, PositionsTurnTheIconAndTheOwnerWaits)
{
    dialog.Create(&owner);
    ASSERT_TRUE(dialog.GetSafeHwnd());
    dialog.Create(&owner);
    EXPECT_EQ(GetLastActivePopup(owner), dialog) << "a second window that nobody owns";
    EXPECT_FALSE(owner.IsWindowEnabled());
    EXPECT_EQ(Line(), LoadResourceString(message::serviceOpenFailed));
    ASSERT_TRUE(Step(0));
    EXPECT_NE(Step(0), Step(1));
    CProgressSink* const sink = dialog.GetProgressSink();
    for (const auto& [position, step] :
         {std::pair(0, 0), std::pair(13, 1), std::pair(23, 11), std::pair(-1, 11)}) {
        sink->SetPos(position);
        EXPECT_EQ(Icon(), Step(static_cast<WORD>(step))) << position;
    }
    sink->SetStatus("Stopping");
    EXPECT_EQ(Line(), "Stopping");
    EXPECT_EQ(sink->GetDialogOwnerWnd(), &dialog);
    EXPECT_EQ(sink->CancelPressed(), 0);
    dialog.SendMessage(WM_COMMAND, IDCANCEL);
    EXPECT_TRUE(dialog.GetSafeHwnd());
    dialog.DestroyWindow();
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST_F(SCMStatus, AnOwnerThatWasDisabledStaysSo)
{
    owner.EnableWindow(FALSE);
    dialog.Create(&owner);
    dialog.DestroyWindow();
    EXPECT_FALSE(owner.IsWindowEnabled());
}

} // namespace
