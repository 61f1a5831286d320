// The clipboard while another program holds it.
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/platform/Windows.h"

#include "Becomes.h"
#include "XServer.h"

#include <csignal>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace corekit::test;

std::u16string ClipboardText()
{
    std::u16string text;
    if (!OpenClipboard(nullptr)) return text;
    if (const HGLOBAL block = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const WCHAR*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

// Another program that holds the clipboard.
class Holder {
public:
    explicit Holder(const char* text)
    {
        int in[2];
        if (pipe(in) != 0) return;
        m_process = fork();
        if (m_process == 0) {
            dup2(in[0], STDIN_FILENO);
            close(in[1]);
            execlp("xclip", "xclip", "-quiet", "-i", "-selection", "clipboard", nullptr);
            _exit(1);
        }
        close(in[0]);
        EXPECT_EQ(write(in[1], text, strlen(text)), static_cast<ssize_t>(strlen(text)));
        close(in[1]);
    }
    ~Holder()
    {
        Tell(SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    void Tell(int signal) const { kill(m_process, signal); }

private:
    pid_t m_process = -1;
};

// An owner that hangs for good would be waited for at each of these, and for longer than a test may last.
TEST(ClipboardOnX, AnOwnerThatHangsOrGoesHoldsNobodyUp)
{
    static XServer server;
    ASSERT_TRUE(server.IsRunning());
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    ASSERT_TRUE(StartToolkit());
    const HWND edit = CreateWindowExA(0, WC_EDITA, "", WS_POPUP | WS_VISIBLE, 0, 0, 200, 30, nullptr, nullptr,
                                      nullptr, nullptr);
    ASSERT_TRUE(edit);
    {
        const Holder holder("held");
        EXPECT_TRUE(Becomes([] { return ClipboardText() == u"held"; }));
        EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
        holder.Tell(SIGSTOP);
        for (int i = 0; i < 40; ++i) {
            EXPECT_EQ(ClipboardText(), u"");
            EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
            SetFocus(edit);
            PressKey('V', {VK_CONTROL});
            SendMessageA(edit, WM_PASTE, 0, 0);
        }
        EXPECT_EQ(GetWindowTextLengthA(edit), 0);
    }
    EXPECT_TRUE(Becomes([] { return !IsClipboardFormatAvailable(CF_UNICODETEXT); }));
    EXPECT_EQ(ClipboardText(), u"");
    const Holder next("again");
    EXPECT_TRUE(Becomes([] { return ClipboardText() == u"again"; }));
    DestroyWindow(edit);
}

} // namespace
