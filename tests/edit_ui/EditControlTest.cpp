#include "ControlHelp.h"
#include "EditScript.h"

#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/unicode/ui/edit/RendererRuler.h"
#include "tests/support/Thrown.h"

#include <QAccessible>
#include <QApplication>
#include <QWidget>

#include <chrono>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <thread>

namespace {

using namespace corekit::detail;
using namespace corekit::test;
using namespace editscript;

void SetClipboard(const std::u16string& text)
{
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const HGLOBAL block = GlobalAlloc(0x2002, (text.size() + 1) * sizeof(char16_t));
    std::memcpy(GlobalLock(block), text.c_str(), (text.size() + 1) * sizeof(char16_t));
    GlobalUnlock(block);
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
}

int WidthOf(const std::u16string& text)
{
    CUniRender renderer;
    renderer.CreateFromDescriptor(EditInAWindow::Font(), 0, 0, 0);
    RendererRuler ruler(renderer);
    return ruler.Width(text.data(), static_cast<int>(text.size()));
}

class ControlEditor final : public Editor {
public:
    explicit ControlEditor(const Row& row)
    {
        const Setup& s = row.setup;
        SetClipboard(u"");
        CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
        manager->OverrideSettings({s.bidi, FALSE, FALSE, FALSE});
        for (int i = 0; i < manager->GetKeyboardCount(); ++i) {
            CString name;
            WORD locale = 0;
            manager->GetKeyboardInfo(i, name, locale);
            if (s.rightToLeftKeys ? locale == 1037 : i == 0) manager->ActivateKeyboard(i, FALSE);
        }
        CMultilineUnicodeEditCtl& edit = m_window.edit;
        edit.SetWrap(s.wrap);
        edit.SetAlignment(s.alignment);
        edit.SetMakeUpper(s.upper);
        edit.SetLimitText(static_cast<short>(s.limit));
        edit.SetString(row.text.c_str());
        const std::u16string line(static_cast<std::size_t>(s.columns), u'x');
        m_window.SetClientSize(WidthOf(line) + 18 + 5 + m_pitch / 2, s.rows * edit.GetTextHeight() + 4);
    }
    const EditModel& Model() const override { return m_window.Model(); }

    void Key(const std::string& name, Held held) override
    {
        static const std::map<std::string, int> keys{
            {"Left", VK_LEFT},     {"Right", VK_RIGHT},   {"Up", VK_UP},     {"Down", VK_DOWN},
            {"Home", VK_HOME},     {"End", VK_END},       {"Back", VK_BACK}, {"Delete", VK_DELETE},
            {"Insert", VK_INSERT}, {"Return", VK_RETURN}, {"Tab", VK_TAB},   {"Escape", VK_ESCAPE},
            {"Other", VK_F1 + 4}};
        const int key = name.size() == 1 ? name[0] : keys.at(name);
        Release();
        if (held.shift && held.control)
            PressKey(key, {VK_SHIFT, VK_CONTROL});
        else if (held.shift)
            PressKey(key, {VK_SHIFT});
        else if (held.control)
            PressKey(key, {VK_CONTROL});
        else if (held.alt)
            PressKey(key, {VK_MENU});
        else
            PressKey(key);
        received = m_window.sink.received;
    }
    void Type(const std::u16string& text) override
    {
        Release();
        TypeText(text);
    }
    void Paste(const std::u16string& text) override
    {
        SetClipboard(text);
        Key("V", {.control = true});
    }
    void Click(char from, int halves, int row, int times) override
    {
        const POINT point = Point(from, halves, row);
        if (times == 2) return corekit::test::Click(m_window.edit, point, Button::left, Clicks::two);
        MouseDown(m_window.edit, point);
        m_pressedAt = point;
        m_pressed = true;
    }
    void Drag(char from, int halves, int row) override
    {
        MoveMouse(m_window.edit, m_pressedAt = Point(from, halves, row));
    }
    void Scroll(const std::string& how) override
    {
        static const std::map<std::string, int> codes{{"lu", 0},  {"ld", 1},     {"pu", 2}, {"pd", 3},
                                                      {"top", 6}, {"bottom", 7}, {"end", 8}};
        m_window.edit.SendMessage(WM_VSCROLL, static_cast<WPARAM>(codes.at(how)), 0);
    }
    void Do(const std::string& what, const std::u16string& text) override
    {
        CMultilineUnicodeEditCtl& edit = m_window.edit;
        if (what == "replace")
            edit.ReplaceSel(text.c_str());
        else if (what == "set")
            edit.SetString(text.c_str());
        else if (what == "upper")
            edit.SetMakeUpper(1);
        else
            edit.SetLimitText(static_cast<short>(std::stoi(std::string(text.begin(), text.end()))));
    }
    void Release()
    {
        if (m_pressed) MouseUp(m_window.edit, m_pressedAt);
        m_pressed = false;
    }

private:
    POINT Point(char from, int halves, int row) const
    {
        const int width = Model().ClientWidth(), x = halves * m_pitch / 2, height = Model().TextHeight();
        return {std::clamp(from == 'l'   ? 4 + x
                           : from == 'c' ? width / 2 + x
                                         : width - 8 - x,
                           0, width - 1),
                row * height + height / 2};
    }

    EditInAWindow m_window;
    const int m_pitch = WidthOf(u"x");
    POINT m_pressedAt{};
    bool m_pressed = false;
};

TEST(EditControl, KeysClicksAndPastesDoAsTheTableSays)
{
    EditInAWindow first; // the manager is up from here on
    for (const Row& row : Rows()) {
        SCOPED_TRACE("edit_actions.tsv:" + std::to_string(row.number));
        ControlEditor editor(row);
        Expect(row, editor, Measures::ofAFont);
    }
}

// The caret stands where this much of the line, in display order, has been written from the left.
TEST(EditControl, TheCaretStandsByTheWidthOfWhatIsShownBeforeIt)
{
    static const struct {
        const char16_t* text;
        int rights;
        const char16_t* before;
    } cases[] = {
        {u"abc", 2, u"ab"},         {u"אבג", 0, u"גבא"},
        {u"אבג", 1, u"גב"},         {u"אבג", 3, u""},
        {u"אב cd הו", 3, u"וה "},   {u"אב cd הו", 4, u"וה c"},
        {u"ab גד ef", 3, u"ab דג"}, {u"ab גד ef", 8, u"ab דג ef"},
        {u"اب 12 ج", 3, u"ج 1"},    {u"اب 12 ج", 7, u""},
        {u"שָב", 2, u"ב"},
    };
    EditInAWindow window;
    CUnicodeManager::GetObjectA()->OverrideSettings({.biDi = TRUE});
    CUnicodeManager::GetObjectA()->ActivateKeyboard(0, FALSE);
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(&c - cases));
        window.edit.SetString(c.text);
        PressKey(VK_HOME, {VK_CONTROL});
        for (int i = 0; i < c.rights; ++i) PressKey(VK_RIGHT);
        POINT caret{};
        ASSERT_TRUE(GetCaretPos(&caret));
        EXPECT_EQ(caret.x, WidthOf(c.before) + 6);
        EXPECT_EQ(caret.y, 2);
    }
}

// ---- What is seen

struct Picture {
    explicit Picture(HWND window) : bitmap(PictureOf(window))
    {
        BITMAP facts{};
        GetObjectA(bitmap, sizeof facts, &facts);
        width = facts.bmWidth;
        height = facts.bmHeight;
        dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, bitmap);
    }
    ~Picture()
    {
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
    int Count(COLORREF colour, const CRect& in) const
    {
        int count = 0;
        for (int y = in.top; y < in.bottom; ++y)
            for (int x = in.left; x < in.right; ++x) count += GetPixel(dc, x, y) == colour;
        return count;
    }
    bool Equals(const Picture& other, int from = 0) const
    {
        for (int y = 0; y < height; ++y)
            for (int x = from; x < width; ++x)
                if (GetPixel(dc, x, y) != GetPixel(other.dc, x, y)) return false;
        return true;
    }

    HBITMAP bitmap;
    HDC dc;
    int width = 0, height = 0;
};

TEST(EditControl, RowsThatDidNotChangeShowWhatAWholePaintWould)
{
    EditInAWindow window(300, 200);
    CUnicodeManager::GetObjectA()->OverrideSettings({.biDi = TRUE});
    window.edit.SetString(u"one two three four\nאבג דהו five six\nseven eight nine ten eleven twelve");
    const std::function<void()> steps[] = {
        [] { TypeText(u"abc "); },
        [] { PressKey(VK_DOWN, {VK_SHIFT}); },
        [] { PressKey(VK_DOWN, {VK_SHIFT}); },
        [] { PressKey(VK_DELETE); },
        [] { PressKey(VK_END, {VK_CONTROL}); },
        [] { TypeText(u"mnopqrst uvw xyz mnopqrst uvw xyz"); },
        [] { PressKey(VK_RETURN, {VK_CONTROL}); },
        [] { PressKey('A', {VK_CONTROL}); },
        [] { PressKey(VK_HOME, {VK_CONTROL}); },
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(std::to_string(&step - steps));
        step();
        window.edit.HideCaret();
        RunWaiting();
        const Picture kept(window.edit);
        window.edit.Invalidate(FALSE);
        RunWaiting();
        EXPECT_TRUE(kept.Equals(Picture(window.edit)));
        window.edit.ShowCaret();
    }
}

TEST(EditControl, ASelectionIsOneBlockOfTheSelectedLettersAndTheFrameStaysWhole)
{
    EditInAWindow window(300, 120);
    CUnicodeManager::GetObjectA()->OverrideSettings({.biDi = TRUE});
    window.edit.SetString(u"אבגד");
    window.edit.SetColours(RGB(10, 20, 30), RGB(250, 240, 230));
    PressKey(VK_HOME, {VK_CONTROL});
    PressKey(VK_RIGHT, {VK_SHIFT});
    PressKey(VK_RIGHT, {VK_SHIFT});
    window.edit.HideCaret();
    RunWaiting();
    const Picture picture(window.edit);
    const COLORREF marked = GetSysColor(COLOR_HIGHLIGHT);
    const int height = window.Model().TextHeight(), from = 6 + WidthOf(u"דג"), to = 6 + WidthOf(u"דגבא");
    EXPECT_GT(picture.Count(marked, CRect(from, 2, to, 2 + height)), (to - from) * height / 2);
    EXPECT_EQ(picture.Count(marked, CRect(0, 0, from, picture.height)), 0) << "the other letters";
    EXPECT_EQ(picture.Count(marked, CRect(to, 0, picture.width, picture.height)), 0);
    EXPECT_GT(picture.Count(RGB(250, 240, 230), CRect(6, 3, from, 2 + height)), 0);
    EXPECT_EQ(picture.Count(RGB(250, 240, 230), CRect(0, 0, 2, picture.height)), 0) << "the frame";
}

TEST(EditControl, ALineThatReachesFarOutLooksLikeAShorterOne)
{
    CUnicodeManager::Initialise(1)->OverrideSettings({.biDi = TRUE});
    std::u16string text;
    for (int i = 0; i < 3000; ++i) text += i % 9 ? static_cast<char16_t>(u'a' + i * i % 26) : u' ';
    const struct {
        int alignment, key;
        std::u16string shorter;
        int sameFrom; // aligned right, letters before the selection stand by fractions of a pixel elsewhere
    } cases[] = {{EditModel::left, VK_HOME, text.substr(0, 300), 0},
                 {EditModel::right, VK_END, text.substr(text.size() - 300), 252}};
    for (const auto& c : cases) {
        EditInAWindow window(300, 120);
        window.edit.SetWrap(0);
        window.edit.SetAlignment(c.alignment);
        const auto pictureOf = [&](const std::u16string& shown) {
            window.edit.SetString(shown.c_str());
            PressKey(c.key, {VK_CONTROL});
            for (int i = 0; i < 3; ++i) PressKey(c.key == VK_HOME ? VK_RIGHT : VK_LEFT, {VK_SHIFT});
            window.edit.HideCaret();
            RunWaiting();
            return std::make_unique<Picture>(window.edit);
        };
        const auto whole = pictureOf(text), part = pictureOf(c.shorter);
        EXPECT_GT(whole->Count(GetSysColor(COLOR_HIGHLIGHT), CRect(0, 0, 300, 120)), 100);
        EXPECT_TRUE(whole->Equals(*part, c.sameFrom)) << c.alignment;
    }
}

// ---- Hosts and hard input

struct DestroyingSink final : NotingSink {
    explicit DestroyingSink(CWnd& window) : m_window(window) {}
    void OnEditReturn() override { m_window.DestroyWindow(); }
    void OnEditLButtonDown() override { m_window.DestroyWindow(); }
    void OnEditKillFocus() override { m_window.DestroyWindow(); }
    CWnd& m_window;
};

TEST(EditControl, ASinkMayDestroyTheWindowThatCallsIt)
{
    const std::function<void(EditInAWindow&)> ways[] = {
        [](EditInAWindow&) { PressKey(VK_RETURN); },
        [](EditInAWindow& w) {
            Click(w.edit, POINT{20, 10});
        },
        [](EditInAWindow&) { ::SetFocus(nullptr); },
    };
    for (const auto& way : ways) {
        EditInAWindow window;
        DestroyingSink sink(window.edit);
        window.edit.RegisterSink(&sink);
        way(window);
        EXPECT_EQ(window.edit.GetSafeHwnd(), nullptr);
    }
}

TEST(EditControl, AFaceThatIsMissingChangesNothing)
{
    EditInAWindow window;
    window.edit.SetString(u"abc");
    const int height = window.edit.GetTextHeight();
    EXPECT_NE(Thrown([&] { window.edit.SetFontData("30\n1\nNo Such Face\n", 0, 0); }), "nothing");
    EXPECT_EQ(window.edit.GetTextHeight(), height);
    PressKey(VK_END);
    TypeText(u"d");
    EXPECT_EQ(window.edit.GetString(), u"abcd");
}

// Lines that take long to make are counted between keys.
TEST(EditControl, TheScrollBarHoldsAllLinesInTheEnd)
{
    EditInAWindow window;
    CUnicodeManager::GetObjectA()->OverrideSettings({.biDi = TRUE});
    std::u16string text = u"x";
    for (int i = 0; i < 16'384; ++i)
        text += {static_cast<char16_t>(u'a' + i * i % 26), static_cast<char16_t>(u'\u0F40' + i * i % 31)};
    window.edit.SetString(text.c_str() + 1);
    TypeText(u"x");
    CRect client;
    window.edit.GetClientRect(&client);
    CUniRender renderer;
    renderer.CreateFromDescriptor(EditInAWindow::Font(), 0, 0, 0);
    RendererRuler ruler(renderer);
    DisplayLines lines(ruler);
    lines.SetMode(Wrapping::on, client.right - 5 - 18);
    lines.Update(text);
    SCROLLINFO info{};
    for (int i = 0; i < 6000 && info.nMax != lines.Count() - 1; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        RunWaiting();
        window.edit.GetScrollInfo(SB_VERT, &info, SIF_RANGE);
    }
    EXPECT_EQ(info.nMax, lines.Count() - 1);
}

TEST(EditControl, NoTextAndNoSizeIsTooMuch)
{
    EditInAWindow window;
    CUnicodeManager::GetObjectA()->OverrideSettings({.biDi = TRUE});
    const std::u16string texts[] = {
        std::u16string(10 << 20, u'x'),
        u"a" + std::u16string(100'000, u'\u0651'),
        std::u16string(50'000, u'\xD801'),
        std::u16string(5 << 20, u'y') + std::u16string(1, u'\0') + u"behind",
        u"\x01\x02\t\r\n\x7F\uFFFF\u202E",
    };
    for (const std::u16string& text : texts) {
        SCOPED_TRACE(std::to_string(&text - texts));
        window.edit.SetString(u"");
        SetClipboard(text);
        PressKey('V', {VK_CONTROL});
        TypeText(u"z");
        PressKey(VK_UP);
        PressKey(VK_LEFT, {VK_CONTROL});
        RunWaiting();
        EXPECT_EQ(window.edit.GetString().GetLength(),
                  static_cast<int>(text.find(u'\0') == text.npos ? text.size() : text.find(u'\0')) + 1);
    }
    window.edit.SetString(u"some words to wrap");
    for (int i = 0; i < 60; ++i) window.edit.MoveWindow(0, 0, 1 + i * i % 97, 1 + i * 7 % 50);
    window.edit.MoveWindow(0, 0, 1, 1);
    TypeText(u"a");
    PressKey(VK_DOWN);
    RunWaiting();
    EXPECT_EQ(window.edit.GetString().GetLength(), 19);
}

TEST(EditControl, IsReadOutWithItsTextAndCursor)
{
    EditInAWindow window;
    window.edit.SetWindowText("Story");
    window.edit.SetString(u"Good evening");
    QAccessibleInterface* const edit = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    EXPECT_EQ(edit->role(), QAccessible::EditableText);
    EXPECT_EQ(edit->text(QAccessible::Name).toStdString(), "Story");
    QAccessibleTextInterface& text = *edit->textInterface();
    text.setCursorPosition(4);
    TypeText(u",");
    EXPECT_EQ(text.cursorPosition(), 5);
    text.setSelection(0, 6, 13);
    int from = 0, to = 0;
    window.edit.GetSelection(from, to);
    EXPECT_EQ(text.text(from, to).toStdString(), "evening");
}

} // namespace
