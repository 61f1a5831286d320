#include "corekit/platform/qt/drawing/PixelRows.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/Fill.h"

#include <algorithm>
#include <cstring>
#include <QImage>

namespace corekit::detail {

namespace {

constexpr std::uint32_t opaque = 0xFF000000u;

unsigned tableOf(DWORD operation) { return operation >> 16 & 0xFF; }

// One axis of a copy: which place of the source each place of the destination shows.
struct Axis {
    std::int64_t to, toSize, from, fromSize;
    bool mirror;

    std::int64_t at(std::int64_t place) const
    {
        std::int64_t i = place - to;
        if (mirror) i = toSize - 1 - i;
        return toSize == fromSize ? from + i : from + (2 * i + 1) * fromSize / (2 * toSize);
    }
};

// The places for which the source has a pixel: one stretch, since the axis runs in one direction.
void cutToSource(const Axis& axis, std::int64_t size, std::int64_t& first, std::int64_t& last)
{
    const auto has = [&](std::int64_t place) { return axis.at(place) >= 0 && axis.at(place) < size; };
    while (first < last && !has(first)) ++first;
    while (last > first && !has(last - 1)) --last;
}

// A part of a source at another size, smoothed by the toolkit.
class SmoothRows final : public PixelRows {
public:
    SmoothRows(const PixelRows& source, const Area& from, int w, int h) : PixelRows(w, h)
    {
        QImage part(static_cast<int>(from.width()), static_cast<int>(from.height()),
                    QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < part.height(); ++y)
            source.read(static_cast<int>(from.top) + y, static_cast<int>(from.left),
                        static_cast<int>(from.right), reinterpret_cast<std::uint32_t*>(part.scanLine(y)));
        m_picture = part.scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    void read(int y, int from, int to, std::uint32_t* out) const override
    {
        std::memcpy(out, reinterpret_cast<const std::uint32_t*>(m_picture.constScanLine(y)) + from,
                    static_cast<std::size_t>(to - from) * 4);
    }

private:
    QImage m_picture;
};

constexpr std::int64_t largestExtent = 1 << 27;   // beyond it the arithmetic of a stretch would overflow
constexpr std::int64_t largestSmoothed = 1 << 24; // pixels

bool canSmooth(const PixelRows& source, const Copying& how)
{
    const Area all{0, 0, source.width, source.height};
    return how.smooth && how.isStretched() && all.covers(how.from) &&
           how.to.width() * how.to.height() <= largestSmoothed;
}

class Copier {
public:
    Copier(DeviceContext& context, const PixelRows& source, const Copying& how)
        : m_context(context), m_source(source),
          m_how(how), m_x{how.to.left, how.to.width(), how.from.left, how.from.width(), how.mirrorX},
          m_y{how.to.top, how.to.height(), how.from.top, how.from.height(), how.mirrorY}
    {
    }

    void copy(Area part)
    {
        cutToSource(m_x, m_source.width, part.left, part.right);
        cutToSource(m_y, m_source.height, part.top, part.bottom);
        if (part.isEmpty()) return;
        m_row.resize(static_cast<std::size_t>(part.width()));
        if (needsBrush(m_how.operation)) m_brush.resize(m_row.size());
        choose(part);
        // Rows that lie lower come first where the source is the same bitmap and moves down.
        const bool upwards = m_source.row(0) && m_y.at(part.top) < part.top;
        for (std::int64_t i = 0; i < part.height(); ++i)
            copyRow(part, upwards ? part.bottom - 1 - i : part.top + i);
    }

private:
    // The columns of the source that the part shows.
    void choose(const Area& part)
    {
        const std::int64_t a = m_x.at(part.left), b = m_x.at(part.right - 1);
        m_first = static_cast<int>(std::min(a, b));
        m_last = static_cast<int>(std::max(a, b)) + 1;
        m_isStraight = !m_how.mirrorX && m_x.toSize == m_x.fromSize;
        m_columns.clear();
        if (m_isStraight) return;
        for (std::int64_t x = part.left; x < part.right; ++x)
            m_columns.push_back(static_cast<std::uint32_t>(m_x.at(x)));
        m_read = -1;
    }

    // The pixels of the part's columns; a row that was asked for last is taken from where it was put then.
    const std::uint32_t* sourceRow(int y, int next, std::uint32_t* to)
    {
        if (m_isStraight) {
            m_source.read(y, m_first, m_last, to);
            return to;
        }
        if (y == m_read) return m_done;
        m_read = y;
        m_done = to;
        if (m_source.readColumns(y, next, m_columns, to)) return to;
        m_whole.resize(static_cast<std::size_t>(m_last - m_first));
        m_source.read(y, m_first, m_last, m_whole.data());
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            to[i] = m_whole[m_columns[i] - static_cast<std::uint32_t>(m_first)];
        return to;
    }

    void copyRow(const Area& part, std::int64_t y)
    {
        Bitmap& bitmap = *m_context.bitmap;
        std::uint32_t* const to = bitmap.row(static_cast<int>(y)) + part.left;
        const auto count = static_cast<std::size_t>(part.width());
        const int from = static_cast<int>(m_y.at(y)),
                  next = y + 1 < part.bottom ? static_cast<int>(m_y.at(y + 1)) : from;
        if (m_how.operation == SRCCOPY) {
            if (const std::uint32_t* const row = sourceRow(from, next, to); row != to)
                std::memcpy(to, row, count * 4);
            if (bitmap.isOpaque)
                for (std::size_t i = 0; i < count; ++i) to[i] |= opaque;
            return;
        }
        if (!m_brush.empty()) brushRow(m_context, *m_context.brush, part.left, y, m_brush);
        combineRow(m_how.operation, to, sourceRow(from, next, m_row.data()), m_brush.data(), count);
    }

    DeviceContext& m_context;
    const PixelRows& m_source;
    const Copying& m_how;
    const Axis m_x, m_y;
    int m_first = 0, m_last = 0, m_read = -1;
    const std::uint32_t* m_done = nullptr;
    bool m_isStraight = false;
    std::vector<std::uint32_t> m_row, m_brush, m_whole, m_columns;
};

// Nothing but rows laid over rows.
void copyStraight(DeviceContext& context, const PixelRows& source, const Copying& how)
{
    const std::int64_t dx = how.from.left - how.to.left, dy = how.from.top - how.to.top;
    const Area there{-dx, -dy, source.width - dx, source.height - dy};
    // Rows that lie lower come first where the source is the same bitmap and moves down.
    const bool upwards = dy < 0 && source.row(0);
    Bitmap& bitmap = *context.bitmap;
    context.forEachPart(how.to.cut(there), [&](const Area& part) {
        const auto from = static_cast<int>(part.left + dx), to = static_cast<int>(part.right + dx);
        const auto top = static_cast<int>(part.top), rows = static_cast<int>(part.height());
        const auto firstRow = static_cast<int>(part.top + dy);
        std::uint32_t* const first = bitmap.row(top) + part.left;
        const std::ptrdiff_t stride = bitmap.topDown ? bitmap.stride : -bitmap.stride;
        if (!upwards) source.readBlock(firstRow, rows, from, to, first, stride);
        for (int y = rows; upwards && y-- > 0;) source.read(firstRow + y, from, to, first + y * stride);
        for (int y = 0; bitmap.isOpaque && y < rows; ++y)
            for (std::int64_t x = 0; x < part.width(); ++x) first[y * stride + x] |= opaque;
    });
}

} // namespace

bool needsSource(DWORD operation)
{
    const unsigned table = tableOf(operation);
    return ((table >> 2 ^ table) & 0x33) != 0;
}

bool needsBrush(DWORD operation)
{
    const unsigned table = tableOf(operation);
    return ((table >> 4 ^ table) & 0x0F) != 0;
}

void combineRow(DWORD operation, std::uint32_t* to, const std::uint32_t* source, const std::uint32_t* brush,
                std::size_t count)
{
    const unsigned table = tableOf(operation);
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t d = to[i], s = source ? source[i] : 0, p = brush ? brush[i] : 0;
        std::uint32_t result = 0;
        for (unsigned row = 0; row < 8; ++row) {
            if (!(table >> row & 1)) continue;
            result |= (row & 4 ? p : ~p) & (row & 2 ? s : ~s) & (row & 1 ? d : ~d);
        }
        to[i] = (result & ~opaque) | (d & opaque);
    }
}

bool copyPixels(DeviceContext& context, const PixelRows& source, const Copying& how)
{
    if (how.to.isEmpty() || how.from.isEmpty()) return true;
    if (how.isStretched() &&
        std::max({how.to.width(), how.to.height(), how.from.width(), how.from.height()}) > largestExtent) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    const bool isStraight = !how.isStretched() && !how.mirrorX && !how.mirrorY;
    if (isStraight && how.operation == SRCCOPY) {
        copyStraight(context, source, how);
        return true;
    }
    if (canSmooth(source, how)) {
        const SmoothRows smoothed(source, how.from, static_cast<int>(how.to.width()),
                                  static_cast<int>(how.to.height()));
        Copying then = how;
        then.from = {0, 0, how.to.width(), how.to.height()};
        return copyPixels(context, smoothed, then);
    }
    Copier copier(context, source, how);
    context.forEachPart(how.to, [&](const Area& part) { copier.copy(part); });
    return true;
}

} // namespace corekit::detail
