#include "corekit/platform/qt/text/FontTables.h"

#include <algorithm>

namespace corekit::detail {

namespace {

// Big-endian numbers at fixed places; what lies behind the end of the table reads as the fallback.
class Table {
public:
    explicit Table(std::span<const BYTE> bytes) : m_bytes(bytes) {}

    bool reaches(std::size_t end) const { return m_bytes.size() >= end; }
    WORD u16(std::size_t at, WORD fallback = 0) const
    {
        return reaches(at + 2) ? static_cast<WORD>(m_bytes[at] << 8 | m_bytes[at + 1]) : fallback;
    }
    int s16(std::size_t at, int fallback = 0) const
    {
        return reaches(at + 2) ? static_cast<SHORT>(u16(at)) : fallback;
    }
    DWORD u32(std::size_t at) const { return static_cast<DWORD>(u16(at)) << 16 | u16(at + 2); }

private:
    std::span<const BYTE> m_bytes;
};

} // namespace

void FontTables::read(std::span<const BYTE> os2Bytes, std::span<const BYTE> hheaBytes,
                      std::span<const BYTE> postBytes)
{
    const Table os2(os2Bytes), hhea(hheaBytes), post(postBytes);
    int lineGap = 0, lineHeight = 0;
    if (hhea.reaches(12)) {
        cellAscent = std::max(0, hhea.s16(4));
        cellDescent = std::max(0, -hhea.s16(6));
        lineGap = hhea.s16(8);
        lineHeight = hhea.s16(4) - hhea.s16(6);
        greatestWidth = hhea.u16(10);
    }
    if (post.reaches(16)) {
        underlineTop = -post.s16(8);
        underlineThickness = post.s16(10);
        fixedPitch = post.u32(12) != 0;
    }
    if (os2.reaches(78)) {
        averageWidth = os2.s16(2);
        weight = os2.u16(4);
        strikeOutThickness = os2.s16(26);
        strikeOutTop = os2.s16(28);
        for (std::size_t i = 0; i < subsets.size(); ++i) subsets[i] = os2.u32(42 + 4 * i);
        firstChar = os2.u16(64);
        lastChar = os2.u16(66);
        if (os2.u16(74) + os2.u16(76) > 0) {
            cellAscent = os2.u16(74);
            cellDescent = os2.u16(76);
        }
        if (os2.u16(0) >= 1)
            for (std::size_t i = 0; i < codePages.size(); ++i) codePages[i] = os2.u32(78 + 4 * i);
        if (os2.u16(0) >= 2) {
            defaultChar = os2.u16(90);
            breakChar = os2.u16(92, 0x20);
        }
    }
    if (cellAscent + cellDescent == 0) cellAscent = unitsPerEm;
    externalLeading = std::max(0, lineGap - (cellAscent + cellDescent - lineHeight));
}

} // namespace corekit::detail
