// Which converter stands for which code page number.
#pragma once

#include "corekit/platform/Types.h"

#include <span>

namespace corekit::detail {

enum class ConverterKind : BYTE { icu, iconv };

struct CodePageName {
    UINT number;
    ConverterKind kind;
    const char* name;
};

// The pages whose converter is not simply named after the number.
std::span<const CodePageName> codePageNames();

} // namespace corekit::detail
