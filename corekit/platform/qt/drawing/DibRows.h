// Rows of device-independent bitmaps as a source of copies.
#pragma once

#include "corekit/platform/Dibs.h"
#include "corekit/platform/qt/drawing/PixelRows.h"

namespace corekit::detail {

// The rows `first` .. `first + count` in memory, at `bits`; what is not among them reads as black.
class DibRows final : public PixelRows {
public:
    DibRows(const DibLayout& layout, const RGBQUAD* colours, const std::byte* bits, int first, int count);
    void read(int y, int from, int to, std::uint32_t* out) const override
    {
        readBlock(y, 1, from, to, out, 0);
    }
    void readBlock(int top, int rows, int from, int to, std::uint32_t* out,
                   std::ptrdiff_t stride) const override;

    bool readColumns(int y, int next, std::span<const std::uint32_t> columns,
                     std::uint32_t* out) const override;

    // The part `from` of the picture over the area `to` of the same size, as far as it may be drawn on. All
    // of the part is among the rows in memory.
    void copyTo(DeviceContext& context, const Area& from, const Area& to) const;

    // The pixels of one row; and of several, `step` bytes apart.
    using DecodeRow = void (*)(const DibRows& dib, const std::byte* row, int from, int to,
                               std::uint32_t* out);

private:
    using Decode = void (*)(const DibRows& dib, const std::byte* row, std::ptrdiff_t step, int rows, int from,
                            int to, std::uint32_t* out, std::ptrdiff_t stride);
    static Decode decoderFor(unsigned bits);
    template <unsigned bits>
    static void decodeIndexed(const DibRows& dib, const std::byte* row, int from, int to, std::uint32_t* out);
    // Null for a row that is not there.
    const std::byte* memoryOf(int y) const
    {
        const int inMemory = (m_layout.topDown ? y : m_layout.height - 1 - y) - m_first;
        return inMemory >= 0 && inMemory < m_count
                   ? m_bits + inMemory * static_cast<std::ptrdiff_t>(m_layout.stride)
                   : nullptr;
    }
    std::uint32_t colour(unsigned index) const
    {
        return index < m_colourCount ? opaque | m_colours[index] : opaque;
    }

    static constexpr std::uint32_t opaque = 0xFF000000u;

    const DibLayout m_layout;
    const Decode m_decode;
    const std::byte* const m_bits;
    const int m_first, m_count;
    std::size_t m_colourCount = 0;
    std::uint32_t m_colours[256];
};

} // namespace corekit::detail
