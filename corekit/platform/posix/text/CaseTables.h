// Simple case mappings of the 16-bit units, fixed for the process.
#pragma once

#include <array>

namespace corekit::detail {

struct CaseTables {
    std::array<char16_t, 65536> upper;
    std::array<char16_t, 65536> lower;
};

// Made at the first call, from the machine's locale-independent mapping.
const CaseTables& caseTables();

} // namespace corekit::detail
