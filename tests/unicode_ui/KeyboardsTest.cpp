// What keyboards type, from a table of cases: keyboards.tsv.
#include "corekit/foundation/StringW.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Messages.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "corekit/unicode/ui/keyboards/KBT_Devanagari.h"
#include "corekit/unicode/ui/keyboards/KBT_Welsh.h"
#include "corekit/unicode/ui/keyboards/KeyboardList.h"
#include "corekit/unicode/ui/keyboards/SystemKeyboard.h"
#include "corekit/unicode/ui/keyboards/TableKeyboard.h"
#include "corekit/unicode/ui/keyboards/Typist.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TabbedCases.h"

#include <array>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <vector>

namespace {

using namespace corekit::detail;

HKL Layout(UINT_PTR value) { return reinterpret_cast<HKL>(value); }

// Those of three layouts of the platform, and all of our own.
KeyboardList AllKeyboards()
{
    const HKL layouts[] = {Layout(0x041E041E), Layout(0x0416), Layout(0x0409)};
    return makeKeyboards(layouts);
}

// By their names, of which no two are the same.
std::map<std::string, std::unique_ptr<CKBLayout>> NamedKeyboards()
{
    std::map<std::string, std::unique_ptr<CKBLayout>> named;
    for (auto& keyboard : AllKeyboards()) {
        const std::string name = keyboard->GetName().GetString();
        EXPECT_TRUE(named.emplace(name, std::move(keyboard)).second) << name;
    }
    return named;
}

KeyStroke Stroke(const std::string& text)
{
    KeyStroke stroke;
    for (const std::string& part : Split(text, '+')) {
        if (part == "shift")
            stroke.shift = true;
        else if (part == "ctrl")
            stroke.ctrl = true;
        else if (part == "alt")
            stroke.alt = true;
        else if (part == "altgr")
            stroke.rightAlt = true;
        else
            stroke.key = part.size() == 1 ? part[0] : std::stoi(part, nullptr, 16);
    }
    return stroke;
}

std::string Shown(const Typist::Typed& typed)
{
    if (!typed.consumed) return typed.characters.empty() ? "pass" : "types, but passes";
    std::string shown;
    for (const char16_t c : typed.characters) {
        char code[8];
        std::snprintf(code, sizeof code, "%04X", static_cast<unsigned>(c));
        shown += (shown.empty() ? "" : "+") + std::string(code);
    }
    return shown.empty() ? "-" : shown;
}

TEST(Keyboards, TypeWhatTheTableSays)
{
    const auto keyboards = NamedKeyboards();
    int rows = 0;
    for (const auto& cells : TabbedCases(TEST_DATA "/keyboards.tsv")) {
        ASSERT_EQ(cells.size(), 3u) << cells[0];
        ASSERT_TRUE(keyboards.contains(cells[0])) << cells[0];
        Typist(*keyboards.at("Devanagari - Std (Internal)")).Press({.key = VK_SPACE}); // a word's start
        Typist typist(*keyboards.at(cells[0]));
        std::string typed;
        for (const std::string& stroke : Split(cells[1], ' '))
            typed += (typed.empty() ? "" : " ") + Shown(typist.Press(Stroke(stroke)));
        EXPECT_EQ(typed, cells[2]) << cells[0] << " " << cells[1];
        ++rows;
    }
    EXPECT_GT(rows, 60);
}

TEST(Keyboards, DevanagariRemembersTheConsonantForBothInstances)
{
    KBT_Devanagari standard(0), alternate(1);
    Typist(standard).Press({.key = 'K'});
    EXPECT_EQ(Typist(alternate).Press({.key = 'E'}).characters, u"\u093E");
    EXPECT_EQ(Typist(standard).Press({.key = 'E'}).characters, u"\u0906");
}

TEST(Keyboards, HeldCapsLockMakesWelshLettersSmall)
{
    KBT_Welsh welsh;
    Typist typist(welsh);
    RecordKeyMotion(VK_CAPITAL, KeyMotion::down);
    EXPECT_EQ(typist.Press({.key = 'W', .shift = true, .rightAlt = true}).characters, u"\u0175");
    RecordKeyMotion(VK_CAPITAL, KeyMotion::up); // on, but not held
    EXPECT_EQ(typist.Press({.key = 'W', .shift = true, .rightAlt = true}).characters, u"\u0174");
    EXPECT_EQ(typist.Press({.key = 'W', .rightAlt = true}).characters, u"\u0175");
}

TEST(Keyboards, DescribeThemselves)
{
    const auto keyboards = NamedKeyboards();
    for (CaseRow row : CaseRows(TEST_DATA "/keyboard_facts.tsv")) {
        const std::string className = row.Word();
        const int locale = row.Number(), codePage = row.Number();
        const auto found = keyboards.find(row.Word());
        ASSERT_NE(found, keyboards.end()) << row.Line();
        const CKBLayout& keyboard = *found->second;
        EXPECT_EQ(keyboard.GetRuntimeClass()->m_lpszClassName, className) << row.Line();
        EXPECT_EQ(keyboard.GetLocale(), locale) << row.Line();
        EXPECT_EQ(keyboard.GetCodePage(), codePage) << row.Line();
        EXPECT_TRUE(keyboard.IsEnabled());
        EXPECT_TRUE(keyboard.IsKindOf(RUNTIME_CLASS(CKBLayout)));
    }
    EXPECT_EQ(keyboards.at("Thai")->GetLayoutHandle(), Layout(0x041E041E));
    CKBLayout& tamil = *keyboards.at("Tamil");
    EXPECT_EQ(tamil.GetLayoutHandle(), nullptr);
    tamil.SetEnabled(FALSE);
    EXPECT_FALSE(tamil.IsEnabled());

    const CSystemKeyboard unknown(Layout(0x03FF));
    EXPECT_STREQ(unknown.GetName(), "");
    EXPECT_EQ(unknown.GetCodePage(), 0);
}

std::u16string GlyphsOf(const std::u16string& text)
{
    StringW glyphs;
    ConvertToGlyphs(text.c_str(), -1, glyphs, false);
    return {static_cast<const WCHAR*>(glyphs), static_cast<std::size_t>(glyphs.GetLength())};
}

// The shaping drops what it does not know, so a wrong code on a key would be typed and never seen.
TEST(Keyboards, WhatIndicKeysTypeIsDrawn)
{
    KBT_Devanagari devanagari(0);
    KBT_Bengali bengali;
    KBT_BengaliInscript bengaliInscript;
    KBT_Assamme assamese;
    KBT_Tamil tamil;
    const std::pair<CKBLayout*, char16_t> keyboards[] = {{&devanagari, u'\u0915'},
                                                         {&bengali, u'\u0995'},
                                                         {&bengaliInscript, u'\u0995'},
                                                         {&assamese, u'\u0995'},
                                                         {&tamil, u'\u0B95'}};
    for (const auto& [keyboard, consonant] : keyboards) {
        Typist typist(*keyboard);
        const std::u16string alone = GlyphsOf({consonant});
        for (int key = 0x20; key < 0xE0; ++key)
            for (const bool shift : {false, true}) {
                const auto typed = typist.Press({.key = key, .shift = shift}).characters;
                if (!typed.empty()) {
                    EXPECT_NE(GlyphsOf(consonant + typed), alone)
                        << keyboard->GetName().GetString() << std::hex << key << shift;
                }
            }
    }
}

// Every key and many that are none, in every state: a message that is not consumed is not touched, and each
// character that is sent is final and within 16 bits.
TEST(Keyboards, AnyMessageIsSafe)
{
    int sent = 0;
    const MessageWindow window([&sent](const MSG& message) -> LRESULT {
        EXPECT_EQ(message.message, WM_CHAR);
        EXPECT_EQ(message.wParam & ~WPARAM{0xFFFF}, finalCharacterMark);
        EXPECT_NE(LOWORD(message.wParam), 0);
        ++sent;
        return 0;
    });
    std::vector<WPARAM> keys{~WPARAM{0}, WPARAM{1} << 63, 0x80000041, 0x100000041, 0x10041};
    for (WPARAM key = 0; key < 0x200; ++key) keys.push_back(key);
    const auto all = AllKeyboards();
    for (int held = 0; held < 16; ++held) {
        std::array<BYTE, 256> state{};
        state[VK_SHIFT] = held & 1 ? 0x80 : 0;
        state[VK_CONTROL] = held & 2 ? 0x80 : 0;
        state[VK_MENU] = held & 4 ? 0x80 : 0;
        state[VK_RMENU] = held & 8 ? 0x80 : 0;
        ASSERT_TRUE(SetKeyboardState(state.data()));
        for (const auto& keyboard : all)
            for (const WPARAM key : keys)
                for (const LPARAM lParam : {LPARAM{0}, LPARAM{-1}}) {
                    MSG message{window.GetSafeHwnd(), WM_KEYDOWN, key, lParam, 0, {}};
                    if (keyboard->TranslateKey(&message) > 0) {
                        ASSERT_LT(key, 0xE0u);
                    } else {
                        ASSERT_TRUE(message.message == WM_KEYDOWN && message.wParam == key);
                    }
                    ASSERT_EQ(message.lParam, lParam);
                }
    }
    for (const auto& keyboard : all) EXPECT_EQ(keyboard->TranslateKey(nullptr), 0);
    EXPECT_GT(sent, 1000);
    SetKeyboardState(std::array<BYTE, 256>{}.data());
}

} // namespace
