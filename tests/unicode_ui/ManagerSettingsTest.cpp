#include "corekit/framework/Exception.h"
#include "corekit/platform/GdiContexts.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/stores/RegistryText.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "corekit/unicode/ui/UniRender.h"
#include "tests/support/CaseRows.h"
#include "tests/support/RegistryHome.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const std::string supportKey = "HKEY_LOCAL_MACHINE\\Software\\Corvane\\Unicode Support";

class ManagerSettings : public RegistryHome {
protected:
    ManagerSettings() { Reload(""); }
    ~ManagerSettings() override
    {
        EnableAll();
        CRegistryKey key;
        if (key.Open(HKEY_LOCAL_MACHINE, "Software\\Corvane")) key.DeleteContents();
        manager.LoadRegistryConfig();
    }

    // Sets what the text holds, below the manager's key.
    void Reload(const std::string& values)
    {
        ImportRegistry("[" + supportKey + "]\n" + values);
        manager.LoadRegistryConfig();
    }
    void EnableAll()
    {
        for (int i = 0; i < manager.GetKeyboardCount(); ++i) manager.GetKeyboard(i)->SetEnabled(TRUE);
    }
    int IndexOf(const char* keyboard)
    {
        for (int i = 0; i < manager.GetKeyboardCount(); ++i)
            if (manager.GetKeyboard(i)->GetName() == keyboard) return i;
        return -1;
    }
    BOOL IsEnabled(const char* keyboard) { return manager.GetKeyboard(IndexOf(keyboard))->IsEnabled(); }

    CUnicodeManager& manager = *CUnicodeManager::Initialise(TRUE);
};

TEST_F(ManagerSettings, EachIsWrittenAtOnceUnderItsName)
{
    const struct {
        const char* name;
        void (*set)(CUnicodeManager&);
        BOOL (*get)(const CUnicodeManager&);
    } settings[] = {
        {"BI-DI Supported", [](CUnicodeManager& m) { m.SetBIDIEnabled(TRUE); },
         [](const CUnicodeManager& m) { return m.IsBIDIEnabled(FALSE); }},
        {"Windows Complex Language Enabled",
         [](CUnicodeManager& m) { m.SetWindowsComplexLanguageHandling(TRUE); },
         [](const CUnicodeManager& m) { return m.WindowsComplexLanguageHandlingEnabled(); }},
        {"Extra Line Height", [](CUnicodeManager& m) { m.SetExtraLineHeight(TRUE); },
         [](const CUnicodeManager& m) { return m.ExtraLineHeight(); }},
        {"Underline Select", [](CUnicodeManager& m) { m.SetUnderlineSelectEnabled(TRUE); },
         [](const CUnicodeManager& m) { return m.IsUnderlineSelectEnabled(); }},
    };
    for (const auto& s : settings) {
        EXPECT_FALSE(s.get(manager)) << s.name;
        s.set(manager);
        EXPECT_NE(ExportRegistry(supportKey).find('"' + std::string(s.name) + "\" = number 1"),
                  std::string::npos)
            << s.name;
        manager.OverrideSettings({});
        EXPECT_FALSE(s.get(manager)) << s.name;
        manager.LoadRegistryConfig();
        EXPECT_TRUE(s.get(manager)) << s.name;
        for (const char* wrong : {" = text \"1\"", " = binary 01 00 00 00", " = number 0"}) {
            Reload('"' + std::string(s.name) + '"' + wrong);
            EXPECT_FALSE(s.get(manager)) << s.name << wrong;
        }
    }
}

TEST_F(ManagerSettings, ControlsFontComesBackAndFallsBack)
{
    CFontDescriptor font;
    manager.SetControlsFontDescriptor(CFontDescriptor(u"9\n2\nDejaVu Sans\nAmiri\n"));
    Reload("");
    manager.GetControlsFontDescriptor(font);
    EXPECT_STREQ(font.GetCombinedString(), "9\n2\nDejaVu Sans\nAmiri\n");
    for (const char* wrong :
         {"\"Size\" = number 0", "\"Count\" = number 3", "\"Font 2\" = number 1", "\"Size\" = text \"9\""}) {
        manager.SetControlsFontDescriptor(font);
        ImportRegistry("[" + supportKey + "\\Controls Font]\n" + wrong);
        manager.LoadRegistryConfig();
        CFontDescriptor loaded;
        manager.GetControlsFontDescriptor(loaded);
        EXPECT_STREQ(loaded.GetCombinedString(), "15\n1\nArial\n") << wrong;
    }
    manager.SetControlsFontDescriptor(CFontDescriptor()); // none is no choice
    manager.GetControlsFontDescriptor(font);
    EXPECT_STREQ(font.GetCombinedString(), "15\n1\nArial\n");
}

TEST_F(ManagerSettings, TheFontOfControlsDrawsWhateverFacesTheMachineHas)
{
    CFontDescriptor font;
    manager.GetControlsFontDescriptor(font);
    CUniRender render;
    render.CreateFromDescriptor(font, FALSE, FALSE, FALSE);
    const HDC context = CreateCompatibleDC(nullptr);
    render.AttachDC(context);
    EXPECT_GT(render.CalcLogicalStringSize(u"News", -1, 0).cx, 20);
    render.DetachDC();
    DeleteDC(context);
}

TEST_F(ManagerSettings, OverridesLeaveTheRegistryAlone)
{
    const std::string before = ExportRegistry(supportKey);
    manager.OverrideSettings({.biDi = TRUE, .complexLanguage = TRUE, .extraLineHeight = TRUE});
    EXPECT_TRUE(manager.IsBIDIEnabled(FALSE) && manager.WindowsComplexLanguageHandlingEnabled() &&
                manager.ExtraLineHeight() && !manager.IsUnderlineSelectEnabled());
    EXPECT_EQ(ExportRegistry(supportKey), before);
}

TEST_F(ManagerSettings, EnabledKeyboardsAreKeptByName)
{
    ImportRegistry("[" + supportKey + "\\Enabled Keyboards]\n\"No longer there\" = number 1\n");
    manager.GetKeyboard(IndexOf("Tamil"))->SetEnabled(FALSE);
    manager.GetKeyboard(IndexOf("Indic Urdu"))->SetEnabled(FALSE);
    manager.SaveEnabledKeyboardsConfig();
    const std::string saved = ExportRegistry(supportKey + "\\Enabled Keyboards");
    EXPECT_EQ(saved.find("No longer there"), std::string::npos);
    EXPECT_NE(saved.find("\"Tamil\" = number 0"), std::string::npos);
    EXPECT_NE(saved.find("\"Assamese\" = number 1"), std::string::npos);
    EnableAll();
    manager.LoadRegistryConfig();
    EXPECT_FALSE(IsEnabled("Tamil"));
    EXPECT_FALSE(IsEnabled("Indic Urdu"));
    EXPECT_TRUE(IsEnabled("Assamese"));
}

TEST_F(ManagerSettings, OnlyTheExactNameAndANumberDisable)
{
    ImportRegistry(
        "[" + supportKey +
        "\\Enabled Keyboards]\n\"tamil\" = number 0\n\"Assamese\" = text \"0\"\n"
        "\"Hebrew (Internal)\" = binary 00 00 00 00\n\"Welsh (Internal)\" = number 0\n\"\" = number 0\n\"" +
        std::string(250, 'x') + "\" = number 0\n");
    manager.LoadRegistryConfig();
    for (const char* name : {"Tamil", "Assamese", "Hebrew (Internal)"}) EXPECT_TRUE(IsEnabled(name)) << name;
    EXPECT_FALSE(IsEnabled("Welsh (Internal)"));
}

TEST_F(ManagerSettings, DefaultLocaleChoosesTheKeyboardThoughSwitchingIsOff)
{
    for (CaseRow row : CaseRows(TEST_DATA "/keyboard_choice.tsv", "default")) {
        Reload("\"Default Locale\" = " + row.Bytes());
        EXPECT_STREQ(manager.GetActiveKeyboardName(), row.Word().c_str()) << row.Line();
    }
    EXPECT_TRUE(manager.ActivateNextKeyboard()); // still off
    EXPECT_STREQ(manager.GetActiveKeyboardName(), "Hebrew (Internal)");
}

TEST_F(ManagerSettings, WithoutARegistryDefaultsHoldAndSettersSaySo)
{
    manager.SetBIDIEnabled(TRUE);
    const std::string home = std::getenv("COREKIT_HOME");
    setenv("COREKIT_HOME", "/dev/null/nowhere", 1);
    manager.LoadRegistryConfig();
    EXPECT_FALSE(manager.IsBIDIEnabled(FALSE));
    CFontDescriptor font;
    manager.GetControlsFontDescriptor(font);
    EXPECT_STREQ(font.GetCombinedString(), "15\n1\nArial\n");
    manager.SetControlsFontDescriptor(CFontDescriptor(u"9\n1\nAmiri\n")); // reports nothing
    EXPECT_NE(Thrown([&] { manager.SetExtraLineHeight(TRUE); }), "nothing")
        << "a lost setting was not reported";
    EXPECT_TRUE(manager.ExtraLineHeight()); // for this process
    setenv("COREKIT_HOME", home.c_str(), 1);
}

} // namespace
