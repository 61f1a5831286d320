#include "corekit/foundation/ui/BitmapResource.h"

#include "corekit/framework/Module.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using Block = std::vector<std::byte>;

// Header, colours and rows of a picture; the rows are in hexadecimal.
Block Dib(WORD bits, int height, std::vector<DWORD> colours, std::string_view rows)
{
    const BITMAPINFOHEADER header{40, 3, height, 1, bits, BI_RGB, 0, 0, 0, static_cast<DWORD>(colours.size()),
                                  0};
    Block block(sizeof header + colours.size() * 4 + rows.size() / 2);
    std::memcpy(block.data(), &header, sizeof header);
    if (!colours.empty()) std::memcpy(block.data() + sizeof header, colours.data(), colours.size() * 4);
    for (std::size_t i = 0; i < rows.size() / 2; ++i)
        block[sizeof header + colours.size() * 4 + i] =
            static_cast<std::byte>(std::stoi(std::string(rows.substr(i * 2, 2)), nullptr, 16));
    return block;
}

std::vector<DWORD> Pixels(HBITMAP bitmap)
{
    BITMAP described{};
    if (!GetObjectA(bitmap, sizeof described, &described)) return {};
    const auto* bits = static_cast<const DWORD*>(described.bmBits);
    std::vector<DWORD> pixels(bits, bits + described.bmWidth * described.bmHeight);
    DeleteObject(bitmap);
    return pixels;
}

// Red, green, blue over white, black, red.
const std::vector<DWORD> picture = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF, 0xFF000000, 0xFFFF0000};
const std::vector<DWORD> colours = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};

TEST(DibBitmap, EveryDepthGivesTheSamePicture)
{
    const struct {
        const char* name;
        Block block;
    } cases[] = {
        {"4 bits", Dib(4, 2, colours,
                       "40100000"
                       "12300000")},
        {"8 bits", Dib(8, 2, colours,
                       "04000100"
                       "01020300")},
        {"8 bits, top row first", Dib(8, -2, colours,
                                      "01020300"
                                      "04000100")},
        {"8 bits, a number without a colour", Dib(8, 2, colours,
                                                  "04990100"
                                                  "01020300")},
        {"16 bits", Dib(16, 2, {},
                        "FF7F0000007C0000"
                        "007CE0031F000000")},
        {"24 bits", Dib(24, 2, {},
                        "FFFFFF0000000000FF000000"
                        "0000FF00FF00FF0000000000")},
        {"32 bits", Dib(32, 2, {},
                        "FFFFFF00000000FF0000FF55"
                        "0000FF0000FF0000FF000000")},
        {"32 bits with colours for a hint", Dib(32, -2, {1, 2},
                                                "0000FF0000FF0000FF000000"
                                                "FFFFFF00000000000000FF00")},
    };
    for (const auto& c : cases) EXPECT_EQ(Pixels(CreateBitmapFromDib(c.block)), picture) << c.name;
    EXPECT_EQ(Pixels(CreateBitmapFromDib(Dib(1, 1, {0x0000FF, 0xFF0000}, "A0000000"))),
              (std::vector<DWORD>{0xFFFF0000, 0xFF0000FF, 0xFFFF0000}));
}

TEST(DibBitmap, RefusesWhatItCannotHoldOrRead)
{
    const Block whole = Dib(8, 2, colours, "0400010001020300");
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(CreateBitmapFromDib(std::span(whole).first(size)), nullptr) << size;
    const auto spoilt = [&whole](std::size_t offset, DWORD value) {
        Block block = whole;
        std::memcpy(block.data() + offset, &value, sizeof value);
        return CreateBitmapFromDib(block);
    };
    const struct {
        const char* what;
        std::size_t offset;
        DWORD value;
    } cases[] = {
        {"header beyond the block", 0, 0xFFFFFFFF},
        {"short header", 0, 12},
        {"no width", 4, 0},
        {"negative width", 4, 0xFFFFFFFD},
        {"too wide", 4, 0x7FFFFFFF},
        {"no height", 8, 0},
        {"lowest height", 8, 0x80000000},
        {"too high", 8, 3},
        {"planes", 12, 0x00080002},
        {"depth", 12, 0x00020001},
        {"compressed", 16, 1},
        {"too many colours", 32, 257},
        {"colours beyond the block", 32, 9},
    };
    for (const auto& c : cases) EXPECT_EQ(spoilt(c.offset, c.value), nullptr) << c.what;
}

TEST(BitmapResource, ComesByNumberOrNameFromTheModuleThatHasIt)
{
    const Block first = Dib(1, 1, {0, 0xFFFFFF}, "40000000"), second = Dib(1, 1, {0, 0xFFFFFF}, "A0000000");
    const BinaryResource resources[] = {{"#2", "#7", first}, {"#2", "Arrow", second}, {"#9", "#8", first}};
    AFX_EXTENSION_MODULE module;
    module.resources = resources;
    ASSERT_TRUE(AfxInitExtensionModule(module, nullptr));
    new CDynLinkLibrary(module);
    EXPECT_EQ(Pixels(AfxLoadBitmap(7u)), (std::vector<DWORD>{0xFF000000, 0xFFFFFFFF, 0xFF000000}));
    EXPECT_EQ(Pixels(AfxLoadBitmap("arrow")), (std::vector<DWORD>{0xFFFFFFFF, 0xFF000000, 0xFFFFFFFF}));
    EXPECT_EQ(AfxLoadBitmap(8u), nullptr);
    AfxTermExtensionModule(module);
    EXPECT_EQ(AfxLoadBitmap(7u), nullptr);
}

} // namespace
