#include "corekit/stores/RegistryNames.h"

std::vector<std::string> RegistryKeyNames(HKEY key)
{
    std::vector<std::string> names;
    char name[256];
    for (DWORD index = 0;; ++index) {
        DWORD size = sizeof name;
        if (RegEnumKeyExA(key, index, name, &size, nullptr, nullptr, nullptr, nullptr) != 0) return names;
        names.emplace_back(name, size);
    }
}

std::vector<std::string> RegistryValueNames(HKEY key)
{
    std::vector<std::string> names;
    std::vector<char> name(16384);
    for (DWORD index = 0;; ++index) {
        auto size = static_cast<DWORD>(name.size());
        if (RegEnumValueA(key, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) != 0)
            return names;
        names.emplace_back(name.data(), size);
    }
}
