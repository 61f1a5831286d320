// The clipboard while another program holds it.
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/Controls.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/Painting.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/platform/Windows.h"

#include "Becomes.h"
#include "ClipboardHolder.h"
#include "DragSource.h"
#include "XServer.h"

#include <QApplication>
#include <QWidget>

#include <csignal>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

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

XServer& Server()
{
    static XServer server;
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    return server;
}

// Two edit controls in a window that has the keyboard.
struct Edits {
    Edits()
    {
        EXPECT_TRUE(Becomes([this] {
            SetFocus(line);
            return QApplication::focusWidget() != nullptr;
        }));
    }
    ~Edits() { DestroyWindow(frame); }
    Edits(const Edits&) = delete;
    Edits& operator=(const Edits&) = delete;
    HWND Child(DWORD style, int y) const
    {
        return CreateWindowExA(0, WC_EDITA, "", WS_CHILD | WS_VISIBLE | style, 0, y, 200, 30, frame, nullptr,
                               nullptr, nullptr);
    }

    HWND frame = CreateWindowExA(0, WC_STATICA, "", WS_POPUP | WS_VISIBLE, 0, 0, 200, 120, nullptr, nullptr,
                                 nullptr, nullptr);
    HWND line = Child(0, 0), lines = Child(ES_MULTILINE, 30);
    HWND combo = CreateWindowExA(0, WC_COMBOBOXA, "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, 0, 60, 200, 120,
                                 frame, nullptr, nullptr, nullptr);
};

std::u16string TextOf(HWND window)
{
    WCHAR text[64] = {};
    GetWindowTextW(window, text, 64);
    return text;
}

// An owner that hangs for good would be waited for at each of these, and for longer than a test may last.
TEST(ClipboardOnX, AnOwnerThatHangsOrGoesHoldsNobodyUp)
{
    ASSERT_TRUE(Server().IsRunning());
    ASSERT_TRUE(StartToolkit());
    const Edits edits;
    {
        const Holder holder("held");
        EXPECT_TRUE(Becomes([] { return ClipboardText() == u"held"; }));
        EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
        holder.Tell(SIGSTOP);
        for (int i = 0; i < 40; ++i) {
            EXPECT_EQ(ClipboardText(), u"");
            EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
            PressKey('V', {VK_CONTROL});
            SendMessageA(edits.line, WM_PASTE, 0, 0);
        }
        EXPECT_EQ(GetWindowTextLengthA(edits.line), 0);
    }
    EXPECT_TRUE(Becomes([] { return !IsClipboardFormatAvailable(CF_UNICODETEXT); }));
    EXPECT_EQ(ClipboardText(), u"");
    const Holder next("again");
    EXPECT_TRUE(Becomes([] { return ClipboardText() == u"again"; }));
    PressKey('V', {VK_CONTROL});
    EXPECT_EQ(TextOf(edits.line), u"again");
}

// Every way in which a user asks for the clipboard, the selection or the menu that has a word for pasting.
void AskEverywhere(const Edits& edits)
{
    for (const HWND edit : {edits.line, edits.lines, edits.combo}) {
        SetFocus(edit);
        PressKey('V', {VK_CONTROL});
        PressKey(VK_INSERT, {VK_SHIFT});
        SendMessageA(edit, WM_PASTE, 0, 0);
        Click(edit, {20, 10}, Button::middle);
        Click(edit, {20, 10}, Button::right);
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu);
        menu->close();
        EXPECT_EQ(GetWindowTextLengthA(edit), 0);
    }
}

// Whoever offers a text and then does not give it is as one who has none, at each of many pastes; the toolkit
// would wait for that one at each.
TEST(ClipboardOnX, ATextThatIsOfferedIsReadWholeOrNotAtAll)
{
    constexpr Manner withheld[] = {Manner::hangs, Manner::diesInTheMidst, Manner::sendsNumbers,
                                   Manner::changesType, Manner::neverEnds};
    ASSERT_TRUE(Server().IsRunning());
    std::vector<std::unique_ptr<ClipboardHolder>> holders;
    for (const Manner manner : withheld) holders.push_back(std::make_unique<ClipboardHolder>(manner));
    ClipboardHolder steady(Manner::sendsSteadily);
    ASSERT_TRUE(StartToolkit());
    const Edits edits;
    const HWND line = edits.line;
    for (const auto& holder : holders) {
        SCOPED_TRACE(&holder - holders.data());
        ASSERT_TRUE(holder->Begin());
        EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
        for (int times = 0; times < 20; ++times) {
            EXPECT_EQ(ClipboardText(), u"");
            AskEverywhere(edits);
        }
    }
    ASSERT_TRUE(steady.Begin());
    EXPECT_EQ(ClipboardText().size(), std::size_t{ClipboardHolder::pieces * ClipboardHolder::pieceSize});
    SetWindowTextW(line, u"[]");
    SendMessageA(line, EM_SETSEL, 1, 1);
    SendMessageA(line, EM_SETLIMITTEXT, 12, 0);
    SetFocus(line);
    PressKey('V', {VK_CONTROL});
    EXPECT_EQ(TextOf(line), u"[xxxxxxxxxx]");
    SendMessageA(line, EM_UNDO, 0, 0);
    EXPECT_EQ(TextOf(line), u"[]");
}

// Drawing at any time, where the toolkit has not painted yet and where it scales.
TEST(WindowsOnX, AreDrawnOnAtATwofoldScale)
{
    setenv("QT_SCALE_FACTOR", "2", 1);
    ASSERT_TRUE(Server().IsRunning());
    ASSERT_TRUE(StartToolkit());
    const Edits edits;
    const HWND late = CreateWindowExA(0, WC_STATICA, "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                      nullptr, nullptr, nullptr);
    for (const HWND window : {edits.frame, late}) {
        const HDC dc = GetDC(window);
        EXPECT_NE(dc, nullptr);
        SetPixel(dc, 1, 1, RGB(255, 0, 0));
        ReleaseDC(window, dc);
    }
    DestroyWindow(late);
}

// The toolkit would wait five seconds at each question, and longer than a test may last at these.
TEST(DragsOnX, ASourceThatHangsHoldsNobodyUp)
{
    ASSERT_TRUE(Server().IsRunning());
    ClipboardHolder hung(Manner::hangs), steady(Manner::sendsSteadily);
    ASSERT_TRUE(StartToolkit());
    const Edits edits;
    SetWindowLongA(edits.frame, GWL_EXSTYLE, WS_EX_ACCEPTFILES);
    SendMessageA(edits.line, EM_SETLIMITTEXT, 12, 0);
    DragSource source(static_cast<xcb_window_t>(QApplication::focusWidget()->window()->winId()));
    ASSERT_TRUE(hung.Begin());
    for (int times = 0; times < 10; ++times)
        for (const int y : {10, 40, 70, 110}) {
            EXPECT_TRUE(source.Drop("UTF8_STRING", 20, y));
            EXPECT_TRUE(source.Drop("text/uri-list", 20, y));
        }
    EXPECT_EQ(TextOf(edits.line) + TextOf(edits.lines) + TextOf(edits.combo), u"");
    ASSERT_TRUE(steady.Begin());
    EXPECT_TRUE(source.Drop("UTF8_STRING", 20, 10));
    EXPECT_EQ(TextOf(edits.line), u"xxxxxxxxxxxx");
}

} // namespace
