// The pairs of a face's kern table: one horizontal subtable or more of format 0.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstdint>
#include <span>
#include <unordered_map>

namespace corekit::detail {

class COREKIT_API KernTable {
public:
    // The table as it lies in the file; what is cut short or of another kind is passed over.
    explicit KernTable(std::span<const BYTE> bytes);

    // Design units by which the second glyph moves to the right; 0 for pairs that are not listed.
    int Of(std::uint16_t left, std::uint16_t right) const
    {
        const auto found = m_pairs.find(static_cast<std::uint32_t>(left) << 16 | right);
        return found == m_pairs.end() ? 0 : found->second;
    }

private:
    std::unordered_map<std::uint32_t, std::int16_t> m_pairs;
};

} // namespace corekit::detail
