// Where a copy takes its pixels from: rows of a bitmap, or rows that are decoded on the way.
#pragma once

#include "corekit/platform/qt/drawing/DeviceContext.h"

#include <cstring>
#include <span>

namespace corekit::detail {

class PixelRows {
public:
    PixelRows(int w, int h) : width(w), height(h) {}
    virtual ~PixelRows() = default;
    PixelRows(const PixelRows&) = delete;
    PixelRows& operator=(const PixelRows&) = delete;

    // The pixels from .. to of a row, counted from the top, all of them within the picture.
    virtual void read(int y, int from, int to, std::uint32_t* out) const = 0;
    // The same of several rows, `stride` pixels apart in `out`.
    virtual void readBlock(int top, int rows, int from, int to, std::uint32_t* out,
                           std::ptrdiff_t stride) const
    {
        for (int i = 0; i < rows; ++i, out += stride) read(top + i, from, to, out);
    }
    // Some pixels of a row, which never go back and forth; row `next` will be asked for then. False where the
    // row has to be read whole.
    virtual bool readColumns(int y, int next, std::span<const std::uint32_t> columns,
                             std::uint32_t* out) const
    {
        const std::uint32_t* const from = row(y);
        (void)next;
        for (std::size_t i = 0; from && i < columns.size(); ++i) out[i] = from[columns[i]];
        return from != nullptr;
    }
    // The row itself where it lies in memory in this form; null where it has to be read.
    virtual const std::uint32_t* row(int) const { return nullptr; }

    const int width, height; // in pixels
};

// How a copy lays a source over the pixels of a context.
struct Copying {
    Area to;   // in pixels of the context, edges in order
    Area from; // in pixels of the source, edges in order; of the same size unless it is stretched
    bool mirrorX = false, mirrorY = false;
    DWORD operation = SRCCOPY;
    bool smooth = false; // where it is stretched

    bool isStretched() const { return to.width() != from.width() || to.height() != from.height(); }
};

class BitmapRows final : public PixelRows {
public:
    explicit BitmapRows(Bitmap& bitmap) : PixelRows(bitmap.width, bitmap.height), m_bitmap(bitmap) {}
    void read(int y, int from, int to, std::uint32_t* out) const override
    {
        std::memmove(out, m_bitmap.row(y) + from, static_cast<std::size_t>(to - from) * 4);
    }
    const std::uint32_t* row(int y) const override { return m_bitmap.row(y); }

private:
    Bitmap& m_bitmap;
};

// What the source does not have, and what the clip does not let through, is left alone. False with a last
// error if the sizes are out of reason.
bool copyPixels(DeviceContext& context, const PixelRows& source, const Copying& how);

// D, S and P by the table of a raster operation; alpha stays that of D.
bool needsSource(DWORD operation);
bool needsBrush(DWORD operation);
void combineRow(DWORD operation, std::uint32_t* to, const std::uint32_t* source, const std::uint32_t* brush,
                std::size_t count);

} // namespace corekit::detail
