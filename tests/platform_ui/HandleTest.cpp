// Handles, ownership, bitmaps, and the context as an object.
#include "Canvas.h"
#include "corekit/framework/ui/DC.h"
#include "tests/support/TempFolder.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

TEST(Handles, WrongNullAndStaleOnesAreRefusedEverywhere)
{
    const HDC deleted = CreateCompatibleDC(nullptr);
    ASSERT_TRUE(DeleteDC(deleted));
    const HFONT font = makeFont(latin, 20);
    int local = 0;
    for (void* const bad :
         {static_cast<void*>(nullptr), static_cast<void*>(deleted), static_cast<void*>(font),
          static_cast<void*>(&local), INVALID_HANDLE_VALUE, reinterpret_cast<void*>(1)}) {
        const HDC dc = static_cast<HDC>(bad);
        SIZE size;
        TEXTMETRICA metrics;
        char name[32];
        EXPECT_FALSE(ExtTextOutW(dc, 0, 0, 0, nullptr, u"A", 1));
        EXPECT_FALSE(GetTextExtentPoint32W(dc, u"A", 1, &size));
        EXPECT_FALSE(GetTextMetricsA(dc, &metrics));
        EXPECT_EQ(GetTextFaceA(dc, sizeof name, name), 0);
        EXPECT_EQ(SelectObject(dc, font), nullptr);
        EXPECT_EQ(SetTextColor(dc, 0), CLR_INVALID);
        EXPECT_EQ(GetTextColor(dc), CLR_INVALID);
        EXPECT_EQ(SetBkColor(dc, 0), CLR_INVALID);
        EXPECT_EQ(SetBkMode(dc, OPAQUE), 0);
        EXPECT_EQ(SetTextAlign(dc, TA_LEFT), GDI_ERROR);
        EXPECT_EQ(CreateCompatibleBitmap(dc, 10, 10), nullptr);
        EXPECT_FALSE(SaveBitmapAsPng(static_cast<HBITMAP>(bad), "/dev/null"));
        EXPECT_FALSE(DeleteDC(dc));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        if (bad != font) {
            EXPECT_EQ(GetObjectA(static_cast<HGDIOBJ>(bad), 0, nullptr), 0);
            EXPECT_FALSE(DeleteObject(static_cast<HGDIOBJ>(bad)));
        }
    }
    const HDC dc = CreateCompatibleDC(nullptr);
    EXPECT_FALSE(DeleteObject(reinterpret_cast<HGDIOBJ>(dc)));
    EXPECT_EQ(SelectObject(dc, reinterpret_cast<HGDIOBJ>(dc)), nullptr);
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_FALSE(DeleteObject(font));
}

TEST(Handles, AReusedSlotDoesNotReviveAnOldHandle)
{
    const HFONT old = makeFont(latin, 20);
    DeleteObject(old);
    const HFONT next = makeFont(latin, 20);
    EXPECT_NE(old, next);
    EXPECT_FALSE(DeleteObject(old));
    EXPECT_TRUE(DeleteObject(next));
}

TEST(Handles, ADeletedFontStaysInForceUntilAnotherIsSelected)
{
    Canvas c;
    const HFONT font = makeFont(latin, 33);
    const HGDIOBJ before = SelectObject(c.dc, font);
    ASSERT_NE(before, nullptr);
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(c.measure(u"x").cy, 33);
    EXPECT_EQ(SelectObject(c.dc, before), font);
    EXPECT_EQ(SelectObject(c.dc, font), nullptr);
    EXPECT_TRUE(DeleteObject(before)) << "the stand-in takes no harm";
    EXPECT_GT(c.measure(u"x").cy, 0);
}

TEST(Bitmaps, ABitmapServesOneContext)
{
    Canvas c;
    const HDC other = CreateCompatibleDC(c.dc);
    EXPECT_EQ(SelectObject(other, c.bitmap()), nullptr);
    EXPECT_FALSE(DeleteObject(c.bitmap()));
    const HBITMAP second = CreateCompatibleBitmap(other, 5, 5);
    EXPECT_EQ(SelectObject(c.dc, second), c.bitmap());
    EXPECT_NE(SelectObject(other, c.bitmap()), nullptr);
    EXPECT_TRUE(DeleteDC(other));
    EXPECT_EQ(SelectObject(c.dc, c.bitmap()), second) << "free again once its context has gone";
    EXPECT_TRUE(DeleteObject(second));
}

TEST(Bitmaps, BadSizesAndFormatsAreRefused)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    for (const SIZE s : {SIZE{0, 5},
                         {5, 0},
                         {-1, 5},
                         {5, -1},
                         {INT32_MIN, 1},
                         {1 << 15, (1 << 13) + 1},
                         {INT32_MAX, INT32_MAX}})
        EXPECT_EQ(CreateCompatibleBitmap(dc, s.cx, s.cy), nullptr) << s.cx << 'x' << s.cy;
    BITMAPINFO good{};
    good.bmiHeader = {40, 7, 3, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    for (const auto spoil :
         {+[](BITMAPINFOHEADER& h) { h.biBitCount = 24; }, +[](BITMAPINFOHEADER& h) { h.biSize = 12; },
          +[](BITMAPINFOHEADER& h) { h.biCompression = 1; }, +[](BITMAPINFOHEADER& h) { h.biPlanes = 0; },
          +[](BITMAPINFOHEADER& h) { h.biHeight = INT32_MIN; },
          +[](BITMAPINFOHEADER& h) { h.biWidth = -7; }}) {
        BITMAPINFO bad = good;
        spoil(bad.bmiHeader);
        void* bits = &bad;
        EXPECT_EQ(CreateDIBSection(nullptr, &bad, 0, &bits, nullptr, 0), nullptr);
        EXPECT_EQ(bits, nullptr);
    }
    DeleteDC(dc);
}

TEST(Bitmaps, RowsLieAsTheHeaderSays)
{
    for (const int height : {3, -3}) {
        BITMAPINFO info{};
        info.bmiHeader = {40, 7, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const HBITMAP bitmap = CreateDIBSection(nullptr, &info, 0, &bits, nullptr, 0);
        const HDC dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, bitmap);
        const RECT top{0, 0, 7, 1};
        SetBkColor(dc, RGB(255, 0, 0));
        ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &top, nullptr, 0);
        BITMAP described{};
        EXPECT_EQ(GetObjectA(bitmap, sizeof described, &described), static_cast<int>(sizeof described));
        EXPECT_EQ(described.bmWidthBytes, 28);
        EXPECT_EQ(described.bmBits, bits);
        EXPECT_EQ(static_cast<std::uint32_t*>(bits)[height < 0 ? 0 : 14], 0xFFFF0000u);
        EXPECT_EQ(static_cast<std::uint32_t*>(bits)[7], 0u);
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
}

TEST(Bitmaps, PngFilesHoldThePicture)
{
    const TempFolder folder;
    const std::string path = folder / "picture.png";
    const auto save = [&](std::u16string_view text) {
        Canvas c(123, 45);
        c.use(latin, 30);
        c.draw(text, 5, 5);
        EXPECT_TRUE(SaveBitmapAsPng(c.bitmap(), path.c_str()));
        return ReadWhole(path);
    };
    const std::string file = save(u"one");
    EXPECT_EQ(file.substr(0, 8), "\x89PNG\r\n\x1A\n");
    EXPECT_EQ(file.substr(16, 8), std::string("\0\0\0\x7B\0\0\0\x2D", 8));
    EXPECT_EQ(file, save(u"one"));
    EXPECT_NE(file, save(u"two"));
    Canvas c;
    EXPECT_FALSE(SaveBitmapAsPng(c.bitmap(), "/no/such/folder/x.png"));
    EXPECT_FALSE(SaveBitmapAsPng(c.bitmap(), nullptr));
}

TEST(ContextObject, OwnsWhatItHolds)
{
    HDC handle = nullptr;
    {
        CDC dc;
        EXPECT_FALSE(dc.Attach(nullptr));
        EXPECT_FALSE(dc.DeleteDC());
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        EXPECT_FALSE(dc.CreateCompatibleDC(nullptr)) << "one at a time";
        handle = dc.GetSafeHdc();
        const HDC other = CreateCompatibleDC(handle);
        EXPECT_FALSE(dc.Attach(other));
        EXPECT_TRUE(DeleteDC(other));
        EXPECT_STREQ(dc.GetRuntimeClass()->m_lpszClassName, "CDC");
    }
    EXPECT_EQ(GetTextColor(handle), CLR_INVALID) << "the destructor deletes";
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    handle = dc.Detach();
    EXPECT_EQ(dc.m_hDC, nullptr);
    EXPECT_TRUE(DeleteDC(handle));
}

TEST(ContextObject, FillSolidRectLeavesItsColour)
{
    Canvas c;
    CDC dc;
    ASSERT_TRUE(dc.Attach(c.dc));
    dc.FillSolidRect(10, 20, 30, 5, RGB(9, 8, 7));
    EXPECT_EQ(c.inkedPixels(), 150);
    EXPECT_EQ(c.at(39, 24), 0xFF090807u);
    EXPECT_EQ(dc.SetBkColor(0), RGB(9, 8, 7));
    dc.Detach();
}

} // namespace
