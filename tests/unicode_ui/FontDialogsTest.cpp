// The dialogs in which a user chooses fonts, from a descriptor to the descriptor that comes of it.
#include "corekit/framework/ui/Dialog.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "tests/dialogs_ui/Modal.h"

#include <string>
#include <string_view>

namespace {

constexpr int size = 1003, faces = 1006, add = 1007, drop = 1008, multiple = 1000;

HWND Control(int id) { return ::GetDlgItem(::GetActiveWindow(), id); }
bool IsOn(int id) { return ::IsWindowEnabled(Control(id)) != FALSE; }
void Press(int id) { SendMessageA(::GetActiveWindow(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
Acts::Act Pressing(int id)
{
    return [id] { Press(id); };
}

void Notify(int id, int code)
{
    SendMessageA(::GetActiveWindow(), WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, code)),
                 reinterpret_cast<LPARAM>(Control(id)));
}
void SelectRow(int row)
{
    SendMessageA(Control(faces), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    Notify(faces, LBN_SELCHANGE);
}
void SelectFace(const char* face)
{
    SelectRow(static_cast<int>(SendMessageA(Control(faces), LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                            reinterpret_cast<LPARAM>(face))));
}
// All at once, in the place of what stands there.
void EnterSize(std::u16string_view text)
{
    ::SetFocus(Control(size));
    SendMessageA(Control(size), CB_SETEDITSEL, 0, MAKELONG(0, 0xFFFF));
    corekit::test::ComposeText(text);
}
std::string Listed(int id, UINT count, UINT textOf)
{
    std::string all;
    for (int i = 0; i < SendMessageA(Control(id), count, 0, 0); ++i) {
        char text[100] = "";
        SendMessageA(Control(id), textOf, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        all += std::string(text) + "/";
    }
    return all;
}
std::string Sizes() { return Listed(size, CB_GETCOUNT, CB_GETLBTEXT); }

// What the dialogs make of a text: whether it was confirmed, and the text behind.
std::string Chosen(const char16_t* text, std::initializer_list<Acts::Act> acts, int readOnly = 0)
{
    CUnicodeManager::Initialise(TRUE);
    CFontDescriptor font(text);
    const Acts user(acts);
    const int answer = font.DoSelectFontDialog(nullptr, readOnly);
    std::string all = std::to_string(answer) + ": " + font.GetCombinedString().GetString();
    for (char& c : all)
        if (c == '\n') c = '/';
    return all;
}

constexpr const char16_t* sans = u"24\n1\nDejaVu Sans\n";
constexpr const char16_t* two = u"24\n2\nDejaVu Sans\nDejaVu Serif\n";

TEST(FontDialogs, AFaceAndTheDigitsOfASizeAreChosenUnlessCancelled)
{
    const Acts::Act choose = [] {
        SelectFace("Amiri");
        EnterSize(u"  1a234");
    };
    EXPECT_EQ(Chosen(sans, {choose, Pressing(IDOK)}), "1: 123/1/Amiri/");
    EXPECT_EQ(Chosen(sans, {choose, Pressing(IDCANCEL)}), "0: 24/1/DejaVu Sans/");
}

TEST(FontDialogs, SizesAreOfferedRoundTheOneInUse)
{
    for (const auto& [text, sizes] : {std::pair{u"2\n1\nArial\n", "1/2/3/4/5/6/7/"},
                                      {u"24\n1\nArial\n", "6/12/18/24/30/36/42/"},
                                      {u"200\n1\nArial\n", "170/180/190/200/210/220/230/"}})
        Chosen(text, {[sizes] { EXPECT_EQ(Sizes(), sizes); }, Pressing(IDCANCEL)});
}

TEST(FontDialogs, SeveralFacesKeepTheirOrderAndAreOneToSixteen)
{
    EXPECT_EQ(Chosen(sans, {[] {
                                EnterSize(u"31");
                                Press(multiple);
                            },
                            [] {
                                SelectRow(0);
                                EXPECT_FALSE(IsOn(drop)) << "the last face";
                                Press(add);
                            },
                            [] {
                                EXPECT_FALSE(IsOn(IDOK)) << "nothing is selected";
                                SelectFace("dejavu sans");
                                EXPECT_FALSE(IsOn(IDOK)) << "has been chosen before";
                                SelectFace("Amiri");
                                Press(IDOK);
                            },
                            Pressing(IDOK)}),
              "1: 31/2/DejaVu Sans/Amiri/");
    EXPECT_EQ(Chosen(two, {[] {
                               SelectRow(0);
                               Press(drop);
                           },
                           Pressing(IDOK)}),
              "1: 24/1/DejaVu Serif/");
    std::u16string most = u"9\n16\n";
    for (int i = 0; i < 16; ++i) most += u"Arial\n";
    Chosen(most.c_str(), {[] { EXPECT_FALSE(IsOn(add)); }, Pressing(IDCANCEL)});
}

TEST(FontDialogs, WhoOnlyLooksCanChangeNothing)
{
    const auto allOff = [](std::initializer_list<int> ids) {
        for (const int id : ids) EXPECT_FALSE(IsOn(id)) << id;
    };
    Chosen(sans, {[&] { allOff({faces, size, multiple, IDOK}); }, Pressing(IDCANCEL)}, 1);
    Chosen(two,
           {[&] {
                SelectRow(0);
                allOff({size, add, drop});
            },
            Pressing(IDCANCEL)},
           1);
}

} // namespace
