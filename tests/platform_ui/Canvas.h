// What the drawing tests share: a bitmap with a context, and questions about its pixels.
#pragma once

#include "corekit/platform/Errors.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Toolkit.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

inline constexpr const char* latin = "Noto Sans";
inline constexpr const char* hebrew = "Noto Sans Hebrew";
inline constexpr const char* arabic = "Noto Sans Arabic";
inline constexpr const char* devanagari = "Noto Sans Devanagari";

struct FontStyle {
    int weight = 400;
    DWORD italic = 0, underline = 0, strikeOut = 0;
    int width = 0;
};

inline HFONT makeFont(const char* face, int height, FontStyle s = {})
{
    return CreateFontA(height, s.width, 0, 0, s.weight, s.italic, s.underline, s.strikeOut, DEFAULT_CHARSET,
                       7, 32, 1, 0, face);
}

// White text on nothing: an inked pixel is one that is not 0.
class Canvas {
public:
    explicit Canvas(int width = 400, int height = 120) : width_(width), height_(height)
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<std::uint32_t*>(bits);
        dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, bitmap_);
        SetTextColor(dc, RGB(255, 255, 255));
        SetBkMode(dc, TRANSPARENT);
    }
    ~Canvas()
    {
        DeleteDC(dc);
        DeleteObject(bitmap_);
        if (font_) DeleteObject(font_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    void use(const char* face, int height, FontStyle style = {})
    {
        const HFONT made = makeFont(face, height, style);
        ASSERT_NE(made, nullptr) << face;
        SelectObject(dc, made);
        if (font_) DeleteObject(font_);
        font_ = made;
    }
    BOOL draw(std::u16string_view text, int x, int y, UINT options = 0, const RECT* rect = nullptr)
    {
        return ExtTextOutW(dc, x, y, options, rect, text.data(), static_cast<UINT>(text.size()));
    }
    SIZE measure(std::u16string_view text, UINT options = 0) const
    {
        SIZE size{-1, -1};
        EXPECT_TRUE(GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size, options));
        return size;
    }
    std::uint32_t at(int x, int y) const { return bits_[y * width_ + x]; }
    void clear() { std::fill_n(bits_, width_ * height_, 0u); }
    std::vector<std::uint32_t> pixels() const { return {bits_, bits_ + width_ * height_}; }

    // The smallest rectangle around all ink; empty (0, 0, 0, 0) without any.
    RECT ink() const
    {
        RECT r{width_, height_, 0, 0};
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                if (at(x, y))
                    r = {std::min(r.left, x), std::min(r.top, y), std::max(r.right, x + 1),
                         std::max(r.bottom, y + 1)};
        return r.right ? r : RECT{};
    }
    int inkedPixels() const
    {
        return static_cast<int>(width_ * height_ - std::count(bits_, bits_ + width_ * height_, 0u));
    }

    HDC dc = nullptr;
    HBITMAP bitmap() const { return bitmap_; }

private:
    int width_, height_;
    std::uint32_t* bits_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HFONT font_ = nullptr;
};
