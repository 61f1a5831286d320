#include "corekit/stores/RegistryText.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/stores/RegistryKey.h"
#include "tests/RegistryHome.h"

namespace {
class RegistryText : public RegistryHome {
protected:
    std::string Refusal(const std::string& text)
    {
        try {
            ImportRegistry(text);
        } catch (CChainedException* e) {
            const std::string message = e->BuildMessageString().GetString();
            e->Delete();
            return message;
        }
        return "";
    }
};
} // namespace

TEST_F(RegistryText, EveryValueComesBackAsItWas)
{
    const auto bytes = [](const char* text, std::size_t size) { return std::string(text, size); };
    const struct {
        RegistryItem item;
        const char* text;
    } rows[] = {
        {{REG_SZ, bytes("two\nlines \"q\" \\\t\x01\0", 18)}, "text \"two\\nlines \\\"q\\\" \\\\\\t\\x01\""},
        {{REG_SZ, bytes("caf\xE9\0", 5)}, "text \"caf\xC3\xA9\""},
        {{REG_SZ, "no end"}, "type 1 6E 6F 20 65 6E 64"},
        {{REG_SZ, bytes("a\0b\0", 4)}, "type 1 61 00 62 00"},
        {{REG_EXPAND_SZ, bytes("%x%\0", 4)}, "expand \"%x%\""},
        {{REG_MULTI_SZ, bytes("one\0two\0\0", 9)}, "texts \"one\" \"two\""},
        {{REG_MULTI_SZ, bytes("\0", 1)}, "texts"},
        {{REG_MULTI_SZ, bytes("one\0", 4)}, "type 7 6F 6E 65 00"},
        {{REG_MULTI_SZ, bytes("a\0\0b\0\0", 6)}, "type 7 61 00 00 62 00 00"},
        {{REG_DWORD, bytes("\xFF\0\0\x80", 4)}, "number 2147483903"},
        {{REG_DWORD, "abc"}, "type 4 61 62 63"},
        {{REG_BINARY, bytes("\0\xAB", 2)}, "binary 00 AB"},
        {{REG_BINARY, ""}, "binary"},
        {{0xFFFFFFFF, "z"}, "type 4294967295 7A"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FormatRegistryValue(row.item), row.text);
        const RegistryItem back = ParseRegistryValue(row.text);
        EXPECT_EQ(back.type, row.item.type) << row.text;
        EXPECT_EQ(back.data, row.item.data) << row.text;
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
    for (const char* line : {"\"a\" = text \"open",
                             "\"a\" = number",
                             "\"a\" = number 4294967296",
                             "\"a\" = number 1x",
                             "\"a\" text \"b\"",
                             "a = number 1",
                             "\"a\" = binary 0",
                             "\"a\" = binary 0g",
                             "\"a\" = text \"\\x00\"",
                             "\"a\" = text \"\\q\"",
                             "\"a\" = texts \"\"",
                             "\"a\" = text \"b\" c",
                             "\"a\" = shape 1",
                             "[Software",
                             "[]",
                             "[\\a]",
                             "[a%0]",
                             "[a%00]",
                             "\"a\" = text \"\xD7\x90\xFF\"",
                             "\"a\" = type",
                             "\"a\" = type x 00"}) {
        const std::string refusal =
            Refusal(std::string("; ok\n[Software\\Made]\n\"x\" = number 1\n") + line + "\n");
        EXPECT_EQ(refusal.find("Line 4 of the registry text"), 0u) << line << ": " << refusal;
    }
    EXPECT_NE(Refusal("\"a\" = number 1"), "") << "a value outside a key";
    CRegistryKey key;
    EXPECT_EQ(key.Open(HKEY_LOCAL_MACHINE, "Software"), 0);
}
