// What is written on the desk while the prompt runs.
#include "OnTheDesk.h"

#include "corekit/platform/Clipboard.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Memory.h"

#include <algorithm>
#include <cstring>
#include <vector>

using namespace prompter;
using namespace corekit::test;

namespace {

void SetClipboardText(const std::u16string& text)
{
    const std::size_t size = (text.size() + 1) * sizeof(char16_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(block), text.c_str(), size);
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
}

class Editing : public OnTheDesk {
protected:
    static constexpr int lineHeight = 70, markTop = 360;

    // A desk that prompts a script of forty lines and stands in the middle of the twentieth.
    std::unique_ptr<Desk> Prompting()
    {
        std::string text;
        for (int i = 1; i <= 40; ++i) text += "Line " + std::to_string(i) + "\n";
        WriteWhole(folder / "s.txt", text);
        Settings settings;
        settings.session.style.size = 50;
        settings.session.style.readingMark = 33;
        settings.session.showsStatus = false;
        EXPECT_TRUE(SaveSettings(folder / "settings", settings));
        DeskOptions options = Options();
        options.script = folder / "s.txt";
        auto desk = std::make_unique<Desk>(options);
        desk->Open();
        desk->StartPrompt(false);
        Session& session = desk->TheSession();
        const std::int64_t now = PromptWnd::Now();
        session.SetSpeed(0, now);
        session.Start(now);
        session.StepLines(19, now);
        session.DragBy(-30, now);
        desk->Tick();
        ::SetFocus(desk->Editor());
        PressKey(VK_HOME, {VK_CONTROL});
        return desk;
    }
    // Rows of the frame that begin so many lines from the line being read.
    static std::vector<std::uint32_t> Rows(Desk& desk, int fromLine, int lines)
    {
        const FrameBuffer& frame = desk.TheSession().Frame();
        const auto width = static_cast<std::size_t>(frame.Size().cx);
        const int top = frame.Size().cy * 33 / 100 - 30 + fromLine * lineHeight;
        const auto pixels = frame.Pixels().subspan(static_cast<std::size_t>(top) * width,
                                                   static_cast<std::size_t>(lines * lineHeight) * width);
        return {pixels.begin(), pixels.end()};
    }
    static void GoToLine(int line)
    {
        PressKey(VK_HOME, {VK_CONTROL});
        for (int i = 1; i < line; ++i) PressKey(VK_DOWN);
    }
    static std::u16string Text(Desk& desk) { return desk.TheSession().TheScript().At(0).text; }
};

TEST_F(Editing, TextChangedAboveTheLineDoesNotMoveIt)
{
    const auto desk = Prompting();
    const auto before = Rows(*desk, -3, 9);
    TypeText(u"new");
    PressKey(VK_RETURN);
    desk->Tick();
    EXPECT_EQ(Text(*desk).substr(0, 11), u"new\nLine 1\n");
    EXPECT_EQ(Rows(*desk, -3, 9), before) << "a line more above";
    GoToLine(3);
    for (int i = 0; i < 14; ++i) PressKey(VK_DELETE);
    desk->Tick();
    EXPECT_EQ(Text(*desk).substr(0, 18), u"new\nLine 1\nLine 4\n");
    EXPECT_EQ(Rows(*desk, -3, 9), before) << "two lines less";
    desk->DestroyWindow();
}

TEST_F(Editing, TextChangedInTheLineOrBelowShowsInTheNextFrame)
{
    const auto desk = Prompting();
    const auto above = Rows(*desk, -4, 4), line = Rows(*desk, 0, 1), below = Rows(*desk, 1, 5);
    GoToLine(20);
    TypeText(u"W");
    desk->Tick();
    EXPECT_NE(Rows(*desk, 0, 1), line);
    EXPECT_EQ(Rows(*desk, -4, 4), above);
    EXPECT_EQ(Rows(*desk, 1, 5), below);
    GoToLine(22);
    TypeText(u"W");
    PressKey(VK_RETURN);
    desk->Tick();
    EXPECT_EQ(Rows(*desk, -4, 4), above);
    EXPECT_EQ(Rows(*desk, 1, 1),
              std::vector(below.begin(), below.begin() + static_cast<std::ptrdiff_t>(below.size() / 5)));
    EXPECT_NE(Rows(*desk, 1, 5), below);
    desk->DestroyWindow();
}

// Of a selection over lines exactly what is marked goes; a line begins where the cursor stands.
TEST_F(Editing, LinesAreBrokenJoinedAndReplacedWhereTheCursorStands)
{
    const auto desk = Prompting();
    const auto start = [&] { return Text(*desk).substr(0, Text(*desk).find(u"\nLine 8")); };
    GoToLine(4);
    PressKey(VK_RIGHT);
    PressKey(VK_RETURN);
    desk->Tick();
    EXPECT_EQ(start(), u"Line 1\nLine 2\nLine 3\nL\nine 4\nLine 5\nLine 6\nLine 7");
    PressKey(VK_BACK);
    PressKey(VK_DOWN, {VK_SHIFT});
    PressKey(VK_DOWN, {VK_SHIFT});
    PressKey('X', {VK_CONTROL});
    desk->Tick();
    EXPECT_EQ(start(), u"Line 1\nLine 2\nLine 3\nLine 6\nLine 7");
    PressKey(VK_HOME);
    PressKey('V', {VK_CONTROL});
    desk->Tick();
    EXPECT_EQ(start(), u"Line 1\nLine 2\nLine 3\nine 4\nLine 5\nLLine 6\nLine 7");
    PressKey(VK_HOME, {VK_SHIFT});
    TypeText(u"Z");
    desk->Tick();
    EXPECT_EQ(start(), u"Line 1\nLine 2\nLine 3\nine 4\nLine 5\nZLine 6\nLine 7");
    PressKey(VK_END, {VK_CONTROL});
    PressKey(VK_RETURN);
    TypeText(u"the end");
    desk->Tick();
    EXPECT_TRUE(Text(*desk).ends_with(u"Line 40\n\nthe end"));
    desk->DestroyWindow();
}

// The clock alone: nobody asks for a frame.
TEST_F(Editing, AFrameComesByItself)
{
    const auto desk = Prompting();
    const auto line = Rows(*desk, 0, 1);
    GoToLine(20);
    TypeText(u"W");
    for (int i = 0; i < 1000 && Rows(*desk, 0, 1) == line; ++i) RunFor(10);
    EXPECT_NE(Rows(*desk, 0, 1), line);
    desk->DestroyWindow();
}

TEST_F(Editing, TextThatAnInputMethodComposesGoesIntoTheScript)
{
    const auto desk = Prompting();
    const auto before = Text(*desk);
    ComposeUnfinished(u"\u306B\u307B");
    desk->Tick();
    EXPECT_EQ(Text(*desk), before) << "it is not finished";
    ComposeText(u"\u65E5\u672C ");
    ComposeText(u"\u0633\u0644\u0627\u0645 \u0939\u093F\u0928\u094D\u0926\u0940 \u06CC\u06A9 ");
    desk->Tick();
    EXPECT_EQ(Text(*desk),
              u"\u65E5\u672C \u0633\u0644\u0627\u0645 \u0939\u093F\u0928\u094D\u0926\u0940 \u06CC\u06A9 " +
                  before);
    desk->DestroyWindow();
}

// The same letters, unit by unit as keys of the platform's layouts send them, and pasted.
TEST_F(Editing, WhatThePlatformComposesStandsAsItIsStoredAtOnce)
{
    const char16_t* const texts[] = {
        u"\u0938\u094D\u0925\u093F\u0924\u093F \u0915\u094D\u0937\u0947\u0924\u094D\u0930 ", // Hindi
        u"\u0995\u09CD\u09B7\u09C7\u09A4\u09CD\u09B0 \u09AC\u09BE\u0982\u09B2\u09BE ",       // Bengali
        u"\u0B95\u0BCA\u0BA3\u0BCD\u0B9F\u0BC1 \u0BA8\u0BBF\u0BB2\u0BC8 ",                   // Tamil
    };
    const auto desk = Prompting();
    auto* const edit = static_cast<ScriptEdit*>(CWnd::FromHandlePermanent(desk->Editor()));
    ASSERT_TRUE(edit);
    std::u16string plain = Text(*desk);
    for (const std::u16string text : texts)
        for (const bool isWhole : {true, false}) {
            PressKey(VK_HOME, {VK_CONTROL});
            if (isWhole)
                ComposeText(text);
            else
                for (const char16_t unit : text) ComposeText({&unit, 1});
            plain = text + plain;
            const StringW stored = StoredOf(plain);
            EXPECT_EQ(ViewOf(edit->GetString()), ViewOf(stored));
            EXPECT_EQ(edit->GetCursorIndex(), StoredOf(text).GetLength());
            desk->Tick();
            EXPECT_EQ(Text(*desk), plain);
        }
    PressKey('A', {VK_CONTROL});
    PressKey(VK_BACK);
    SetClipboardText(std::u16string(texts[0]) + u"\n" + texts[1]);
    PressKey('V', {VK_CONTROL});
    EXPECT_EQ(ViewOf(edit->GetString()), ViewOf(StoredOf(std::u16string(texts[0]) + u"\n" + texts[1])));
    desk->DestroyWindow();
}

} // namespace
