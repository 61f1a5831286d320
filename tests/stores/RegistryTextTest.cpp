#include "corekit/stores/RegistryText.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/stores/RegistryKey.h"
#include "tests/support/CaseRows.h"
#include "tests/support/RegistryHome.h"
#include "tests/support/Thrown.h"

namespace {
class RegistryText : public RegistryHome {
protected:
    std::string Refusal(const std::string& text)
    {
        return Thrown([&] { ImportRegistry(text); });
    }
};
} // namespace

TEST_F(RegistryText, EveryValueComesBackAsItWas)
{
    for (CaseRow row : CaseRows(TEST_DATA "/registry_text.tsv", "value")) {
        const auto type = row.Number<DWORD>();
        const std::string data = row.Bytes(), text = row.Bytes();
        EXPECT_EQ(FormatRegistryValue({type, data}), text);
        const RegistryItem back = ParseRegistryValue(text);
        EXPECT_EQ(back.type, type) << row.Line();
        EXPECT_EQ(back.data, data) << row.Line();
    }
}

TEST_F(RegistryText, ExportedTreeImportsIntoAnEmptyRegistry)
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, "Software\\Odd % key]\n\\below");
    key.SetValue("", "default");
    key.SetValue("quo\"ted", 5);
    key.Create(HKEY_LOCAL_MACHINE, "Software\\empty");
    key.Close();
    const std::string text = ExportRegistry("HKLM\\Software");
    EXPECT_NE(text.find("[HKEY_LOCAL_MACHINE\\Software\\Odd %25 key]%0A\\below]\n\"\" = text \"default\""),
              std::string::npos)
        << text;

    const TempFolder other;
    setenv("COREKIT_HOME", other.Path().c_str(), 1);
    EXPECT_EQ(ImportRegistry("\xEF\xBB\xBF" + text), 2);
    EXPECT_EQ(ExportRegistry("Software"), text);
    EXPECT_EQ(ImportRegistry("[HKCU\\A]\r\n \"x\"=number 0x10\r\n"), 1);
    EXPECT_EQ(key.Open(HKEY_CURRENT_USER, "A"), 1);
    int number = 0;
    EXPECT_EQ(key.GetValue("x", number), 1);
    EXPECT_EQ(number, 16);
}

TEST_F(RegistryText, FaultyTextNamesItsLineAndChangesNothing)
{
    for (CaseRow row : CaseRows(TEST_DATA "/registry_text.tsv", "faulty")) {
        const std::string refusal =
            Refusal("; ok\n[Software\\Made]\n\"x\" = number 1\n" + row.Bytes() + "\n");
        EXPECT_EQ(refusal.find("Line 4 of the registry text"), 0u) << row.Line() << ": " << refusal;
    }
    EXPECT_NE(Refusal("\"a\" = number 1"), "nothing") << "a value outside a key";
    CRegistryKey key;
    EXPECT_EQ(key.Open(HKEY_LOCAL_MACHINE, "Software"), 0);
}
