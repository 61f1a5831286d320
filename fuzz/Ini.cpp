#include "FuzzFile.h"

#include "corekit/platform/Profiles.h"
#include "corekit/stores/IniFile.h"

#include <string>

// Every section and key of the file is read in every form, then changed, and must read as it was set.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FuzzFile file("ini", data, size);
    const std::string& path = file.Path();
    CIniFile ini(path.c_str());
    char names[4096], keys[4096];
    GetPrivateProfileStringA(nullptr, nullptr, "", names, sizeof names, path.c_str());
    for (const char* section = names; *section; section += std::strlen(section) + 1) {
        GetPrivateProfileStringA(section, nullptr, "", keys, sizeof keys, path.c_str());
        int count = 0;
        for (const char* key = keys; *key && ++count < 8; key += std::strlen(key) + 1) {
            CString text;
            StringW wide;
            BYTE block[8];
            _GUID guid;
            ini.GetBoolean(section, key, 0);
            ini.GetInteger(section, key, 0);
            ini.GetHex(section, key, 0);
            ini.GetRGB(section, key, 0);
            ini.GetClassID(section, key, &guid);
            ini.GetDataBlock(section, key, block, sizeof block);
            ini.GetMacroString(section, key, text);
            ini.GetUnicodeString(section, key, wide);
            if (!WritePrivateProfileStringA(section, key, "set", path.c_str())) continue;
            if (ini.GetInteger(section, key, 7) != 0) std::abort();
            ini.DeleteEntry(section, key);
            if (ini.GetString(section, key, text)) std::abort();
        }
        ini.DeleteSection(section);
        break;
    }
    return 0;
}
