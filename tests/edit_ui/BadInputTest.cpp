// What no user means to do, and what a broken program does: nothing crashes, and the window works on.
#include "ControlHelp.h"

#include "corekit/framework/DialogBytes.h"
#include "corekit/framework/Exception.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Dialogs.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/Windows.h"

#include "tests/dialogs_ui/Modal.h"
#include "tests/support/Thrown.h"

#include <atomic>
#include <cstring>
#include <gtest/gtest.h>
#include <thread>

namespace {

using namespace corekit::test;

constexpr std::size_t mebibyte = 1024 * 1024;

std::u16string Repeated(std::u16string_view part, std::size_t length)
{
    std::u16string text;
    text.reserve(length + part.size());
    while (text.size() < length) text += part;
    text.resize(length);
    return text;
}

// Fills the window, and works in it at both ends.
void Edit(EditInAWindow& window, const std::u16string& text)
{
    window.edit.SetString(text.c_str());
    const int before = window.edit.GetString().GetLength();
    EXPECT_EQ(before, static_cast<int>(text.size()));
    for (const int key : {VK_HOME, VK_END}) {
        PressKey(key, {VK_CONTROL});
        TypeText(u"x");
        PressKey(VK_LEFT);
        PressKey(VK_UP, {VK_SHIFT});
    }
    DeleteObject(PictureOf(window.edit.m_hWnd));
    EXPECT_NE(window.edit.GetString().GetLength(), before);
}

void LongLine(EditInAWindow& window) { Edit(window, Repeated(u"one line of text ", 10 * mebibyte)); }
void Marks(EditInAWindow& window) { Edit(window, u"a" + Repeated(u"\u0301\u0302\u064B\u093F", 100'000)); }
void EqualMarks(EditInAWindow& window) { Edit(window, u"a" + Repeated(u"\u0301", 100'000)); }
void Surrogates(EditInAWindow& window)
{
    Edit(window, Repeated(u"\xD800\xD800\xDC00\xDFFF\xDBFF", 1000)); // in pairs and alone
}
void ControlCharacters(EditInAWindow& window)
{
    std::u16string text;
    for (char16_t c = 1; c < 0xA0; ++c)
        if (c < 0x20 || c >= 0x7F) text += c;
    for (const char16_t c : u"\u200B\u200E\u200F\u202A\u202E\u2028\u2029\u2066\uFEFF\uFFFE\uFFFF")
        if (c) text += c;
    Edit(window, Repeated(text, 4096));
}

void PasteWithNul(EditInAWindow& window)
{
    std::u16string text = Repeated(u"pasted ", 5 * mebibyte / sizeof(char16_t));
    text[7000] = 0;
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() * sizeof(char16_t)); // without an end, too
    std::memcpy(GlobalLock(block), text.data(), text.size() * sizeof(char16_t));
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
    window.edit.SetString(u"");
    PressKey('V', {VK_CONTROL});
    EXPECT_EQ(window.edit.GetString().GetLength(), 7000);
}

void MissingFont(EditInAWindow& window)
{
    CFontDescriptor font;
    font.SetSize(20);
    font.AddFont("A Face That Nobody Has");
    EXPECT_NE(Thrown([&] { window.edit.SetFontData(font.GetCombinedString(), 0, 0); }), "nothing");
    Edit(window, u"as before");
}

void OnePixel(EditInAWindow& window)
{
    for (const CSize size : {CSize(1, 1), CSize(0, 0), CSize(1, 300), CSize(300, 1)}) {
        window.edit.MoveWindow(0, 0, size.cx, size.cy);
        RunWaiting();
        Edit(window, u"words that have no room \u05D0\u05D1 \u0627\u0628");
    }
}

void ResizeStorm(EditInAWindow& window)
{
    const std::u16string text = Repeated(u"some words, \u05DE\u05D9\u05DC\u05D9\u05DD ", 4096);
    window.edit.SetString(text.c_str());
    for (int i = 0; i < 400; ++i) {
        window.edit.MoveWindow(0, 0, 20 + i * 37 % 900, 10 + i * 61 % 500);
        if (i % 8 == 0) RunWaiting();
        if (i % 50 == 0) TypeText(u"y");
    }
    EXPECT_EQ(window.edit.GetString().GetLength(), static_cast<int>(text.size()) + 8);
}

struct EndingSink : NotingSink {
    explicit EndingSink(CWnd& window) : edit(window) {}
    void OnEditReturn() override { edit.DestroyWindow(); }
    CWnd& edit;
};
void EndedWithinAKey(EditInAWindow& window)
{
    EndingSink sink(window.edit);
    window.edit.RegisterSink(&sink);
    PressKey(VK_RETURN);
    EXPECT_EQ(window.edit.m_hWnd, nullptr);
    EXPECT_TRUE(window.edit.Create(&window.parent, 1, CRect(0, 0, 300, 100)));
    window.edit.SetFocus();
}

// A static and a button, as a resource compiler lays them out, then cut at each byte, then wild.
void SpoiltTemplates(EditInAWindow& window)
{
    constexpr WORD plain[] = {
        0x0000, 0x80C8, 0, 0, 2,  10, 20, 100, 60, 0,      0,      'T', 0, 0, // style, count, place, caption
        0x0000, 0x5000, 0, 0, 5,  6,  70, 8,   5,  0xFFFF, 0x0082, 'L', 0, 0, // a label
        0x0000, 0x5001, 0, 0, 50, 60, 40, 14,  9,  0xFFFF, 0x0080, 'G', 0, 0  // a button
    };
    const auto bytes = std::as_bytes(std::span(plain));
    const auto make = [&](std::span<const std::byte> template_) {
        const auto read = corekit::detail::DialogBytes::read(template_, 1);
        if (!read) return false;
        const HWND made =
            CreateDialogIndirectParamA(nullptr, &read->dialog(), window.parent.m_hWnd, nullptr, 0);
        if (made) DestroyWindow(made);
        return made != nullptr;
    };
    EXPECT_TRUE(make(bytes));
    for (std::size_t length = 0; length < bytes.size(); ++length) make(bytes.first(length));
    for (std::size_t at = 0; at < bytes.size(); ++at)
        for (const unsigned char value : {0x00, 0x7F, 0xFF}) {
            std::vector<std::byte> wild(bytes.begin(), bytes.end());
            wild[at] = static_cast<std::byte>(value);
            make(wild);
        }
    RunWaiting();
}

void BoxFromAnotherThread(EditInAWindow&)
{
    std::atomic<int> answer = 0;
    Acts acts{Press(VK_ESCAPE)};
    std::thread asking([&] { answer = AfxMessageBox("Asked from elsewhere", MB_OKCANCEL); });
    while (!answer) RunFor(5);
    asking.join();
    EXPECT_EQ(answer, IDCANCEL);
}

constexpr struct {
    const char* name;
    void (*run)(EditInAWindow& window);
} rows[] = {{"a line of 10 MiB", LongLine},
            {"100,000 marks", Marks},
            {"100,000 equal marks", EqualMarks},
            {"only surrogates", Surrogates},
            {"control characters", ControlCharacters},
            {"a paste of 5 MiB with NUL", PasteWithNul},
            {"a missing font", MissingFont},
            {"a window of one pixel", OnePixel},
            {"a resize storm", ResizeStorm},
            {"a window destroyed within its own message", EndedWithinAKey},
            {"dialog templates cut and wild", SpoiltTemplates},
            {"a box from a thread without windows", BoxFromAnotherThread}};

class BadInput : public testing::TestWithParam<std::size_t> {};

TEST_P(BadInput, LeavesTheWindowInWorkingOrder)
{
    SCOPED_TRACE(rows[GetParam()].name);
    EditInAWindow window;
    rows[GetParam()].run(window);
    window.edit.MoveWindow(0, 0, 300, 100);
    window.edit.SetString(u"");
    RunWaiting();
    window.edit.SetFocus();
    RunWaiting();
    TypeText(u"still here");
    EXPECT_EQ(std::u16string(window.edit.GetString()), u"still here");
}

INSTANTIATE_TEST_SUITE_P(All, BadInput, testing::Range<std::size_t>(0, std::size(rows)));

} // namespace
