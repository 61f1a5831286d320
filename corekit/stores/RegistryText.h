// The registry as text that people read, edit and keep: UTF-8, a key or a value a line.
//
//     ; a remark
//     [HKEY_LOCAL_MACHINE\Software\Corvane]
//     "NTSC Mode" = number 1
//     "Title" = text "two\nlines"
//     "List" = texts "one" "two"
//     "Blob" = binary 0A FF 3C
//
// Every type comes back as it was: what none of these forms can hold is "type N" with its bytes. Class names
// and times of keys are not kept. Failures throw a CChainedException. Any thread.
#pragma once

#include "corekit/stores/RegistryNames.h"

#include <string>
#include <string_view>
#include <vector>

struct RegistryItem {
    DWORD type = REG_NONE;
    std::string data; // narrow text in the active code page
};

// The part of a line behind the "=". Parsing throws the reason, without a place.
COREKIT_API std::string FormatRegistryValue(const RegistryItem& item);
COREKIT_API RegistryItem ParseRegistryValue(std::string_view text);

// Splits HKEY_LOCAL_MACHINE\... or HKEY_CURRENT_USER\... (also HKLM, HKCU) into hive and path; a path that
// names no hive is one of the former.
COREKIT_API HKEY SplitRegistryPath(const std::string& full, std::string& path);

// False if there is no such value.
COREKIT_API bool ReadRegistryItem(HKEY key, const char* name, RegistryItem& item);

// The key and all that is below it.
COREKIT_API std::string ExportRegistry(const std::string& fullPath);
// Sets everything that the text holds and deletes nothing; returns the number of values. A text with a fault
// changes nothing; the message tells the line. Takes no memory beyond the longest line.
COREKIT_API int ImportRegistry(std::string_view text);
