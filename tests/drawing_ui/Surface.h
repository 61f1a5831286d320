// Pixels that a context draws on as it would on a window's, with a margin that must stay as it is.
#pragma once

#include "corekit/platform/qt/drawing/ForeignPixels.h"

#include <gtest/gtest.h>
#include <vector>

class Surface {
public:
    static constexpr int margin = 8;
    static constexpr std::uint32_t untouched = 0xFF123456;

    explicit Surface(int w = 40, int h = 30, double scale = 1, std::optional<QRegion> clip = {})
        : width(w), height(h), stride_(w + 2 * margin),
          pixels_(static_cast<std::size_t>(stride_ * (h + 2 * margin)), untouched)
    {
        on_.pixels = &pixels_[static_cast<std::size_t>(margin * stride_ + margin)];
        on_.width = w;
        on_.height = h;
        on_.stride = stride_;
        on_.scale = scale;
        on_.clip = std::move(clip);
        dc = corekit::detail::makeForeignContext(on_);
    }
    ~Surface() { DeleteDC(dc); }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    std::uint32_t at(int x, int y) const
    {
        return pixels_[static_cast<std::size_t>((y + margin) * stride_ + x + margin)];
    }
    int count(std::uint32_t pixel) const
    {
        int n = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) n += at(x, y) == pixel;
        return n;
    }
    // The pixels that differ from the untouched ones: the bounding rectangle.
    RECT ink() const
    {
        RECT r{width, height, 0, 0};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (at(x, y) != untouched)
                    r = {std::min(r.left, x), std::min(r.top, y), std::max(r.right, x + 1),
                         std::max(r.bottom, y + 1)};
        return r.right ? r : RECT{};
    }
    bool marginIsWhole() const
    {
        for (int y = -margin; y < height + margin; ++y)
            for (int x = -margin; x < width + margin; ++x)
                if ((x < 0 || y < 0 || x >= width || y >= height) && at(x, y) != untouched) return false;
        return true;
    }
    std::vector<std::uint32_t> pixels() const { return pixels_; }
    const corekit::detail::ForeignPixels& on() const { return on_; }

    HDC dc = nullptr;
    const int width, height;

private:
    const int stride_;
    std::vector<std::uint32_t> pixels_;
    corekit::detail::ForeignPixels on_;
};

inline bool operator==(const RECT& a, const RECT& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
inline void PrintTo(const RECT& r, std::ostream* out)
{
    *out << r.left << ' ' << r.top << ' ' << r.right << ' ' << r.bottom;
}
