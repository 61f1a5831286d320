// Bitmaps drawn, loaded from resources, cached, and drawn through a buffer.
#include "tests/graphics/BitmapFiles.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/Module.h"
#include "corekit/graphics/ui/BitmapDrawCache.h"
#include "corekit/graphics/ui/BufferDC.h"
#include "corekit/platform/Dibs.h"
#include "corekit/platform/Gdi.h"
#include "tests/support/Thrown.h"

#include <span>

namespace {

// A context of 32 bits whose pixels can be read; 0 where nothing was drawn.
struct Canvas {
    Canvas(int w, int h) : width(w), height(h)
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), w, -h, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap.Attach(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        dc.CreateCompatibleDC(nullptr);
        dc.SelectObject(&bitmap);
        pixels = {static_cast<std::uint32_t*>(bits), static_cast<std::size_t>(w * h)};
    }
    ~Canvas() { dc.DeleteDC(); }
    std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    std::vector<std::uint32_t> all() const { return {pixels.begin(), pixels.end()}; }
    std::size_t drawn() const
    {
        return pixels.size() - static_cast<std::size_t>(std::ranges::count(pixels, 0u));
    }

    CBitmap bitmap;
    CDC dc;
    std::span<std::uint32_t> pixels;
    const int width, height;
};

std::vector<std::uint32_t> pictureOf(const char* name)
{
    const Bytes rgb = readBytes(bitmapPath(name));
    std::vector<std::uint32_t> pixels;
    for (std::size_t i = 0; i < rgb.size(); i += 3)
        pixels.push_back(0xFF000000u | DWORD{rgb[i]} << 16 | DWORD{rgb[i + 1]} << 8 | rgb[i + 2]);
    return pixels;
}

std::vector<std::uint32_t> drawnBy(const CDib& dib)
{
    Canvas canvas(pictureWidth, pictureHeight);
    dib.DrawBitmap(canvas.dc, CPoint(0, 0));
    return canvas.all();
}

TEST(DibDrawing, EveryDepthGivesThePicture)
{
    for (const BitmapFile& file : bitmapFiles) {
        CDib dib;
        dib.LoadDIBFile(bitmapPath(file.name).c_str());
        EXPECT_EQ(drawnBy(dib), pictureOf(file.picture)) << file.name;
        Canvas doubled(2 * pictureWidth, 2 * pictureHeight);
        dib.StretchBitmap(doubled.dc, CRect(0, 0, 2 * pictureWidth, 2 * pictureHeight));
        for (int y = 0; y < doubled.height; ++y)
            for (int x = 0; x < doubled.width; ++x)
                ASSERT_EQ(doubled.at(x, y),
                          pictureOf(file.picture)[static_cast<std::size_t>(y / 2 * pictureWidth + x / 2)]);
    }
    for (const int height : {pictureHeight, -pictureHeight}) {
        const Bytes block = fifteenBitDib(height);
        CDib dib;
        dib.AttachDIBData(block.data(), static_cast<DWORD>(block.size()));
        EXPECT_EQ(drawnBy(dib), pictureOf("colours.raw")) << height;
    }
}

// Long rows reach the parts of the decoder that take several pixels at once.
TEST(DibDrawing, LongRowsOfTwentyFourBitsAreWhole)
{
    for (int width = 1; width < 40; ++width) {
        const int stride = (width * 3 + 3) / 4 * 4;
        BITMAPINFO info{};
        info.bmiHeader = {40, width, 1, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
        std::vector<BYTE> row(static_cast<std::size_t>(stride)); // exactly as large as it has to be
        for (std::size_t i = 0; i < row.size(); ++i) row[i] = static_cast<BYTE>(i + 1);
        Canvas canvas(width, 1);
        EXPECT_EQ(SetDIBitsToDevice(canvas.dc, 0, 0, static_cast<DWORD>(width), 1, 0, 0, 0, 1, row.data(),
                                    &info, 0),
                  1);
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(canvas.at(x, 0),
                      0xFF000000u + static_cast<DWORD>((3 * x + 3) << 16 | (3 * x + 2) << 8 | (3 * x + 1)));
    }
}

TEST(DibDrawing, PlacesCountFromTheFirstRowInMemory)
{
    CDib dib;
    dib.LoadDIBFile(bitmapPath("rgb24-pil.bmp").c_str());
    const auto picture = pictureOf("colours.raw");
    Canvas canvas(pictureWidth, pictureHeight);
    dib.DrawBitmap(canvas.dc, CRect(1, 0, 4, 2), CPoint(2, 1));
    EXPECT_EQ(canvas.drawn(), 3u * 2);
    EXPECT_EQ(canvas.at(2, 1), picture[3 * pictureWidth + 1]) << "the lowest rows come first";
    Canvas beyond(pictureWidth, pictureHeight);
    dib.StretchBitmap(beyond.dc, CRect(0, 0, 3, 2), CRect(0, 0, 3, 2));
    EXPECT_EQ(beyond.at(0, 0), picture[0]) << "from row 3, the right edge, on";
    dib.StretchBitmap(canvas.dc, CRect(0, 0, 7, 5), CRect(0, 0, 7, 5));
    EXPECT_EQ(canvas.drawn(), 3u * 2) << "there is no row 7";
}

TEST(DibDrawing, OddCallsFail)
{
    Canvas canvas(4, 4);
    CDib none;
    none.DrawBitmap(canvas.dc, CPoint());
    none.StretchBitmap(canvas.dc, CRect(0, 0, 4, 4));
    BITMAPINFO info{};
    info.bmiHeader = {40, 4, 4, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const std::vector<BYTE> bits(64);
    EXPECT_EQ(SetDIBitsToDevice(canvas.dc, 0, 0, 4, 4, 0, 0, 0, 4, nullptr, &info, 0), 0);
    EXPECT_EQ(SetDIBitsToDevice(canvas.dc, 0, 0, 4, 4, 0, 0, 9, 4, bits.data(), &info, 0), 0);
    EXPECT_EQ(SetDIBitsToDevice(nullptr, 0, 0, 4, 4, 0, 0, 0, 4, bits.data(), &info, 0), 0);
    EXPECT_EQ(SetDIBitsToDevice(canvas.dc, 0, 0, ~0u, ~0u, INT32_MIN, INT32_MAX, 0, 4, bits.data(), &info, 0),
              4);
    info.bmiHeader.biCompression = 1;
    EXPECT_EQ(StretchDIBits(canvas.dc, 0, 0, 4, 4, 0, 0, 4, 4, bits.data(), &info, 0, SRCCOPY), 0);
    EXPECT_EQ(canvas.drawn(), 0u);
    EXPECT_EQ(GetDIBits(canvas.dc, canvas.bitmap, 0, 4, nullptr, nullptr, 0), 0);
}

// All depths as resources 1, 4, ... of a program, and the coloured picture as number 100 + depth.
class Resources : public testing::Test {
protected:
    void SetUp() override
    {
        for (const BitmapFile& file : bitmapFiles) {
            if (std::string(file.name).starts_with("core")) continue;
            Bytes bytes = readBytes(bitmapPath(file.name));
            bytes.erase(bytes.begin(), bytes.begin() + 14);
            add(file.bits, std::move(bytes));
        }
        add(16, fifteenBitDib(-pictureHeight));
        add(99, {1, 2, 3});
        for (std::size_t i = 0; i < blocks.size(); ++i)
            rows.push_back({"#2", names[i].c_str(), std::as_bytes(std::span(blocks[i]))});
        AfxSetResources(rows);
    }
    void TearDown() override { AfxSetResources({}); }
    void add(int number, Bytes bytes)
    {
        names.push_back("#" + std::to_string(number));
        blocks.push_back(std::move(bytes));
    }

    std::vector<Bytes> blocks;
    std::vector<std::string> names;
    std::vector<BinaryResource> rows;
};

TEST_F(Resources, KeepTheirDepth)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    struct Case {
        UINT bits;
        DWORD infoSize, dataSize;
    };
    for (const Case& c : {Case{1, 48, 2 * 5},
                          {4, 40 + 64, 4 * 5},
                          {8, 40 + 1024, 3 * 8 * 5},
                          {16, 40 + 1024, 14 * 5},
                          {24, 40 + 1024, 22 * 5},
                          {32, 44, 28 * 5}}) {
        CDib dib;
        dib.LoadBitmapResource(c.bits, dc);
        EXPECT_EQ(dib.GetBitmapInfo()->bmiHeader.biBitCount, c.bits);
        EXPECT_EQ(dib.GetInfoSize(), c.infoSize) << c.bits;
        EXPECT_EQ(dib.GetDataSize(), c.dataSize) << c.bits;
        EXPECT_EQ(drawnBy(dib), pictureOf(c.bits == 1 ? "mono.raw" : "colours.raw")) << c.bits;
    }
    for (const UINT id : {99u, 12345u}) {
        CDib dib;
        EXPECT_NE(Thrown([&] { dib.LoadBitmapResource(id, dc); }), "nothing");
    }
}

TEST_F(Resources, TheCacheLoadsOnceAndOnlyWhenAsked)
{
    CBitmapDrawCache cache;
    EXPECT_EQ(cache.GetBitmap(24, 0), nullptr);
    EXPECT_EQ(cache.IsBitmapCached(24), 0);
    EXPECT_EQ(cache.GetBitmapSize(12345, 1), CSize(0, 0));
    CDib* const bitmap = cache.GetBitmap(24, 1);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(cache.IsBitmapCached(24), 1);
    EXPECT_EQ(cache.GetBitmapSize(24, 0), CSize(pictureWidth, pictureHeight));
    AfxSetResources({});
    EXPECT_EQ(cache.GetBitmap(24, 1), bitmap);
    EXPECT_EQ(cache.CacheBitmap(24), 0);
    AfxSetResources(rows);
    EXPECT_EQ(cache.CacheBitmap(24), 1);
    EXPECT_NE(cache.GetBitmap(24, 0), bitmap);
    EXPECT_TRUE(bitmap->IsValid()) << "whoever holds the old one keeps it";
    Canvas canvas(20, 20);
    cache.DrawBitmap(canvas.dc, 24, CPoint(3, 4));
    EXPECT_EQ(canvas.at(3, 4), pictureOf("colours.raw")[0]);
    cache.DrawBitmapCentreVertically(canvas.dc, 24, CRect(0, 0, 20, 20));
    EXPECT_EQ(canvas.drawn(), 400u);
    cache.DrawBitmap(canvas.dc, 12345, CPoint());
    EXPECT_EQ(&GetBitmapDrawCache(), &GetBitmapDrawCache());
}

TEST(BufferDC, CopiesToTheEdgesOfItsRectangle)
{
    Canvas canvas(60, 40);
    {
        CBufferDC buffer(&canvas.dc, CRect(10, 5, 30, 25), 1);
        buffer.FillSolidRect(0, 0, 20, 20, RGB(255, 0, 0));
        EXPECT_EQ(canvas.drawn(), 0u);
        buffer.BlitToScreen();
        EXPECT_EQ(canvas.drawn(), 400u);
        buffer.FillSolidRect(0, 0, 20, 20, RGB(0, 255, 0));
    }
    EXPECT_EQ(canvas.at(29, 24), 0xFF00FF00);
    EXPECT_EQ(canvas.at(30, 25), 0u);
    {
        CBufferDC silent(&canvas.dc, CRect(0, 0, 10, 10), 1);
        silent.FillSolidRect(0, 0, 10, 10, RGB(0, 0, 255));
        silent.EnableBlitOnDestruction(0);
    }
    EXPECT_EQ(canvas.at(0, 0), 0u);
}

} // namespace
