#include "corekit/unicode/ui/UsbRanges.h"

namespace corekit::detail {

constexpr DWORD usbRangeTable[usbRangeCount] = {
    0x0020007E, 0x00A000FF, 0x0100017F, 0x0180024F, 0x025002AF, 0x02B002FF, 0x0300036F, 0x037003CF,
    0x03D003FF, 0x040004FF, 0x0530058F, 0x05D005FF, 0x059005CF, 0x06000652, 0x065306FF, 0x0900097F,
    0x098009FF, 0x0A000A7F, 0x0A800AFF, 0x0B000B7F, 0x0B800BFF, 0x0C000C7F, 0x0C800CFF, 0x0D000D7F,
    0x0E000E7F, 0x0E800EFF, 0x10D010FF, 0x10A010CF, 0x110011FF, 0x1E001EFF, 0x1F001FFF, 0x2000206F,
    0x2070209F, 0x20A020CF, 0x20D020FF, 0x2100214F, 0x2150218F, 0x219021FF, 0x220022FF, 0x230023FF,
    0x2400243F, 0x2440245F, 0x246024FF, 0x2500257F, 0x2580259F, 0x25A025FF, 0x260026FF, 0x270027BF,
    0x3000303F, 0x3040309F, 0x30A030FF, 0x3100312F, 0x3130318F, 0x3190319F, 0x320032FF, 0x330033FF,
    0x34003D2D, 0x3D2E44B7, 0x44B84DFF, 0x4E009FFF, 0xE000F8FF, 0xF900FAFF, 0xFB00FB4F, 0xFB50FDFF,
    0xFE20FE2F, 0xFE30FE4F, 0xFE50FE6F, 0xFE70FEFE, 0xFF00FFEF, 0xFFF0FFFD,
};

namespace {

using RangeIndexes = std::array<BYTE, 0x10000>;

constexpr void fill(RangeIndexes& table, int first, int last, int index)
{
    for (int c = first; c <= last; ++c) table[static_cast<std::size_t>(c)] = static_cast<BYTE>(index);
}

// Rows overlap and the first one wins, so the last is laid down first. The private use area is no row's:
// beyond the glyph codes it counts as row 0.
constexpr RangeIndexes makeRangeIndexes()
{
    RangeIndexes table{};
    for (int n = usbRangeCount - 1; n >= 0; --n)
        fill(table, HIWORD(usbRangeTable[n]), LOWORD(usbRangeTable[n]), n);
    fill(table, 0xE000, 0xF8FF, 0);
    for (int n = 0; n < privateRangeCount; ++n)
        fill(table, 0xE000 + n * 0x100, 0xE0FF + n * 0x100, usbRangeCount + n);
    return table;
}

} // namespace

constinit const RangeIndexes rangeIndexTable = makeRangeIndexes();

} // namespace corekit::detail
