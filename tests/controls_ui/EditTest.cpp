#include "Parent.h"

#include "corekit/platform/Edits.h"
#include "corekit/platform/Keyboard.h"

using namespace corekit::test;

TEST(Edits, TakeWhatTheirStyleAdmits)
{
    struct Case {
        DWORD style;
        int limit;
        const char16_t* typed;
        const char* text;
        bool hitTheLimit;
    };
    const Case cases[] = {
        {ES_AUTOHSCROLL, 0, u"Abc 1", "Abc 1", false},
        {ES_UPPERCASE, 0, u"aBc", "ABC", false},
        {ES_LOWERCASE, 0, u"aBc", "abc", false},
        {ES_NUMBER, 0, u"1a2", "12", true},
        {ES_AUTOHSCROLL, 3, u"abcdef", "abc", true},
        {ES_READONLY, 0, u"abc", "", false},
        {ES_MULTILINE, 0, u"ab c", "ab c", false},
        {ES_MULTILINE | ES_UPPERCASE, 0, u"abc", "ABC", false},
        {ES_MULTILINE | ES_NUMBER, 0, u"1x2", "12", true},
        {ES_MULTILINE, 2, u"abc", "ab", true},
        {ES_MULTILINE | ES_READONLY, 0, u"abc", "", false},
    };
    for (const Case& c : cases) {
        Parent parent;
        const HWND edit = parent.add(WC_EDITA, "", c.style);
        SetFocus(edit);
        if (c.limit) send(edit, EM_SETLIMITTEXT, static_cast<WPARAM>(c.limit));
        TypeText(c.typed);
        EXPECT_EQ(textOf(edit), c.text) << "style " << c.style;
        EXPECT_EQ(parent.heard(EN_MAXTEXT), c.hitTheLimit) << "style " << c.style;
        EXPECT_EQ(parent.heard(EN_CHANGE), c.text[0] != 0) << "style " << c.style;
        EXPECT_EQ(send(edit, EM_GETMODIFY) != 0, c.text[0] != 0) << "style " << c.style;
    }
}

TEST(Edits, CountLineEndsTwice)
{
    Parent parent;
    const HWND edit = parent.add(WC_EDITA, "one\r\ntwo\nthree", ES_MULTILINE | ES_AUTOHSCROLL);
    EXPECT_EQ(textOf(edit), "one\r\ntwo\r\nthree");
    EXPECT_EQ(send(edit, EM_GETLINECOUNT), 3);
    struct Line {
        int line, index, length;
    };
    for (const Line& l : {Line{0, 0, 3}, Line{1, 5, 3}, Line{2, 10, 5}}) {
        EXPECT_EQ(send(edit, EM_LINEINDEX, static_cast<WPARAM>(l.line)), l.index);
        EXPECT_EQ(send(edit, EM_LINELENGTH, static_cast<WPARAM>(l.index)), l.length);
        EXPECT_EQ(send(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(l.index + 1)), l.line);
    }
    EXPECT_EQ(send(edit, EM_LINEINDEX, 3), -1);
    char line[8] = {6, 0};
    EXPECT_EQ(send(edit, EM_GETLINE, 2, line), 5);
    EXPECT_EQ(std::string(line, 5), "three");
    send(edit, EM_SETSEL, 1, 6);
    DWORD start = 0, end = 0;
    SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 1u);
    EXPECT_EQ(end, 6u);
    send(edit, EM_REPLACESEL, 1, "-");
    EXPECT_EQ(textOf(edit), "o-wo\r\nthree");
    EXPECT_TRUE(send(edit, EM_CANUNDO));
    send(edit, EM_UNDO);
    EXPECT_EQ(textOf(edit), "one\r\ntwo\r\nthree");
}

TEST(Edits, SelectAndReplaceInOneLine)
{
    Parent parent;
    const HWND edit = parent.add(WC_EDITA, "hello world", 0);
    send(edit, EM_SETSEL, 0, 5);
    EXPECT_EQ(send(edit, EM_GETSEL), MAKELONG(0, 5));
    send(edit, EM_REPLACESEL, 0, "bye");
    EXPECT_EQ(textOf(edit), "bye world");
    EXPECT_FALSE(send(edit, EM_CANUNDO));
    send(edit, EM_SETSEL, 0, -1);
    send(edit, WM_CUT);
    EXPECT_EQ(textOf(edit), "");
    send(edit, WM_PASTE);
    EXPECT_EQ(textOf(edit), "bye world");
    SetWindowTextW(edit, u"שלום");
    WCHAR wide[16];
    EXPECT_EQ(std::u16string(wide, static_cast<std::size_t>(GetWindowTextW(edit, wide, 16))), u"שלום");
}

TEST(Edits, KeepAProgramsTextWholeAndAReadOnlyOneFromBeingCut)
{
    for (const DWORD lines : {DWORD{0}, ES_MULTILINE}) {
        Parent parent;
        const HWND edit = parent.add(WC_EDITA, "12", lines | ES_NUMBER);
        send(edit, EM_SETLIMITTEXT, 3);
        send(edit, EM_SETSEL, 1, 1);
        send(edit, EM_REPLACESEL, TRUE, "abcdef");
        EXPECT_EQ(textOf(edit), "1abcdef2") << lines;
        EXPECT_FALSE(parent.heard(EN_MAXTEXT)) << lines;
        EXPECT_EQ(send(edit, EM_GETSEL), MAKELONG(7, 7)) << lines;
        send(edit, EM_UNDO);
        EXPECT_EQ(textOf(edit), "12") << lines;
        send(edit, EM_SETREADONLY, TRUE);
        send(edit, EM_SETSEL, 0, -1);
        send(edit, WM_CUT);
        EXPECT_EQ(textOf(edit), "12") << lines;
    }
}
