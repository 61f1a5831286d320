// Which converter stands for which code page number.
#pragma once

#include "corekit/platform/Types.h"

#include <span>
#include <string_view>

namespace corekit::detail {

enum class ConverterKind : BYTE {
    icu,
    icuSingle, // the one-byte part of an ICU converter that shifts between one byte and two
    iconv,
    own
};

struct CodePageName {
    UINT number;
    ConverterKind kind;
    const char* name;
};

// Every page that there may be, by ascending number. Whether it is there depends on the machine's converters.
std::span<const CodePageName> codePageNames();

// Bytes from `first` on that stand for other units than the converter says.
struct CodePagePatch {
    UINT page;
    BYTE first;
    std::u16string_view units;
};

std::span<const CodePagePatch> codePagePatches(UINT page);

} // namespace corekit::detail
