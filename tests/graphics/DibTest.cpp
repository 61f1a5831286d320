#include "BitmapFiles.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/StringA.h"
#include "corekit/graphics/Dib.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/support/FullDisk.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <cstdio>

namespace {

std::string textOf(UINT id) { return static_cast<const char*>(LoadResourceString(id)); }

Bytes bytesOf(const void* data, DWORD size)
{
    return {static_cast<const BYTE*>(data), static_cast<const BYTE*>(data) + size};
}

const BITMAPINFOHEADER& headerOf(const CDib& dib) { return dib.GetBitmapInfo()->bmiHeader; }

// What another program's reader makes of a file: a plain pixmap's bytes.
std::string readByNetpbm(const std::string& path)
{
    FILE* const pipe = popen(("bmptopnm " + path + " 2>/dev/null | pnmtoplainpnm 2>/dev/null").c_str(), "r");
    std::string text;
    for (int c; pipe && (c = std::fgetc(pipe)) != EOF;) text += static_cast<char>(c);
    EXPECT_EQ(pclose(pipe), 0);
    return text;
}

TEST(Dib, FilesOfOtherProgramsLoad)
{
    for (const BitmapFile& file : bitmapFiles) {
        CDib dib;
        dib.LoadDIBFile(bitmapPath(file.name).c_str());
        ASSERT_TRUE(dib.IsValid()) << file.name;
        EXPECT_EQ(dib.GetBitmapWidth(), pictureWidth);
        EXPECT_EQ(dib.GetBitmapHeight(), pictureHeight);
        EXPECT_EQ(headerOf(dib).biSize, 40u) << file.name;
        EXPECT_EQ(headerOf(dib).biBitCount, file.bits) << file.name;
        EXPECT_EQ(dib.GetInfoSize(), 40 + 4 * file.colours) << file.name;
        EXPECT_EQ(dib.GetDataSize(), (pictureWidth * file.bits + 31u) / 32 * 4 * pictureHeight) << file.name;
        const Bytes bytes = readBytes(bitmapPath(file.name));
        CDib fromFile, fromBlock;
        fromFile.AttachDIBFileData(bytes.data(), static_cast<DWORD>(bytes.size()));
        fromBlock.AttachDIBData(bytes.data() + 14, static_cast<DWORD>(bytes.size() - 14));
        for (const CDib* const other : {&fromFile, &fromBlock})
            EXPECT_EQ(bytesOf(other->GetBitmapData(), other->GetDataSize()),
                      bytesOf(dib.GetBitmapData(), dib.GetDataSize()));
    }
}

TEST(Dib, SavedFilesAreReadByUsAndByOthers)
{
    const TempFolder folder;
    const std::string path = folder.Path() + "/saved.bmp";
    for (const BitmapFile& file : bitmapFiles) {
        CDib dib, again;
        dib.LoadDIBFile(bitmapPath(file.name).c_str());
        dib.SaveDIBFile(path.c_str());
        EXPECT_EQ(headerOf(dib).biSizeImage, dib.GetDataSize());
        again.LoadDIBFile(path.c_str());
        EXPECT_EQ(bytesOf(again.GetBitmapInfo(), again.GetInfoSize()),
                  bytesOf(dib.GetBitmapInfo(), dib.GetInfoSize()));
        EXPECT_EQ(bytesOf(again.GetBitmapData(), again.GetDataSize()),
                  bytesOf(dib.GetBitmapData(), dib.GetDataSize()));
        EXPECT_EQ(readByNetpbm(path), readByNetpbm(bitmapPath(file.name))) << file.name;
        EXPECT_NE(readByNetpbm(path), "");
    }
    CDib dib;
    EXPECT_EQ(ThrownLine([&] { dib.SaveDIBFile(path.c_str()); }), textOf(message::bitmapCreateFailed));
    dib.LoadDIBFile(path.c_str());
    EXPECT_EQ(ThrownLine([&] { dib.SaveDIBFile("/no/such/folder/x.bmp"); }),
              textOf(message::bitmapCreateFailed));
    EXPECT_EQ(ThrownLine([&] { dib.SaveDIBFile("/dev/full"); }), textOf(message::bitmapCreateFailed));
}

TEST(Dib, AFileThatCannotBeReplacedKeepsItsPicture)
{
    const TempFolder folder;
    const std::string path = folder.Path() + "/kept.bmp";
    CDib dib;
    dib.LoadDIBFile(bitmapPath("rgb24-pil.bmp").c_str());
    dib.SaveDIBFile(path.c_str());
    {
        const FullDisk full(64);
        EXPECT_EQ(ThrownLine([&] { dib.SaveDIBFile(path.c_str()); }), textOf(message::bitmapCreateFailed));
    }
    CDib again;
    again.LoadDIBFile(path.c_str());
    EXPECT_EQ(bytesOf(again.GetBitmapData(), again.GetDataSize()),
              bytesOf(dib.GetBitmapData(), dib.GetDataSize()));
}

TEST(Dib, WhatEndsBeforeItsPixelsIsRefusedAndPixelsThatAreMissingAreNought)
{
    for (const char* const name : {"pal8-pil.bmp", "core4-netpbm.bmp", "rgb24-pil.bmp"}) {
        const Bytes whole = readBytes(bitmapPath(name));
        CDib full;
        full.AttachDIBFileData(whole.data(), static_cast<DWORD>(whole.size()));
        const std::size_t pixelsAt = whole.size() - full.GetDataSize();
        Bytes pixels = bytesOf(full.GetBitmapData(), full.GetDataSize());
        for (std::size_t size = whole.size(); size-- > 0;) {
            const Bytes part(whole.begin(),
                             whole.begin() + static_cast<std::ptrdiff_t>(size)); // its end is its end
            CDib dib;
            const auto load = [&] { dib.AttachDIBFileData(part.data(), static_cast<DWORD>(size)); };
            if (size < pixelsAt) {
                ASSERT_EQ(ThrownLine(load), textOf(message::bitmapUnreadable)) << name << ' ' << size;
                ASSERT_FALSE(dib.IsValid());
            } else {
                load();
                pixels[size - pixelsAt] = 0;
                ASSERT_EQ(bytesOf(dib.GetBitmapData(), dib.GetDataSize()), pixels) << name << ' ' << size;
            }
        }
    }
}

TEST(Dib, WildHeadersAreRefused)
{
    struct Case {
        const char* what;
        std::size_t at;
        DWORD value;
        UINT message;
    };
    const Case cases[] = {
        {"magic", 0, 0x4D41, message::bitmapUnreadable},
        {"size of header", 14, 11, message::bitmapUnreadable},
        {"size of header", 14, 124, message::bitmapUnreadable},
        {"size of header", 14, ~0u, message::bitmapUnreadable},
        {"width", 18, 0, message::bitmapUnreadable},
        {"width", 18, 0x7FFFFFFF, message::bitmapUnreadable},
        {"width", 18, 0x80000000, message::bitmapUnreadable},
        {"height", 22, 0, message::bitmapUnreadable},
        {"height", 22, 0x80000000, message::bitmapUnreadable},
        {"height", 22, 0x7FFFFFFF, message::bitmapUnreadable},
        {"bits", 28, 2, message::bitmapUnreadable},
        {"bits", 28, 0, message::bitmapUnreadable},
        {"bits", 28, 64, message::bitmapUnreadable},
        {"compression", 30, 1, message::bitmapCompressed},
        {"compression", 30, 3, message::bitmapCompressed},
        {"colours", 46, 0x3FFFFFFF, message::bitmapUnreadable},
        {"colours", 46, ~0u, message::bitmapUnreadable},
    };
    for (const Case& c : cases) {
        Bytes bytes = readBytes(bitmapPath("pal8-pil.bmp"));
        const std::size_t size = c.at == 0 || c.at == 28 ? 2 : 4;
        std::memcpy(&bytes[c.at], &c.value, size);
        CDib dib;
        EXPECT_EQ(ThrownLine([&] { dib.AttachDIBFileData(bytes.data(), static_cast<DWORD>(bytes.size())); }),
                  textOf(c.message))
            << c.what << ' ' << c.value;
        EXPECT_EQ(dib.GetBitmapInfo(), nullptr);
    }
    CDib dib;
    EXPECT_EQ(ThrownLine([&] { dib.LoadDIBFile("/no/such.bmp"); }), textOf(message::bitmapUnreadable));
    EXPECT_EQ(ThrownLine([&] { dib.AttachDIBData(nullptr, 99); }), textOf(message::bitmapUnreadable));
}

TEST(Dib, ThePlaceOfThePixelsIsComputed)
{
    Bytes bytes = readBytes(bitmapPath("rgb24-pil.bmp"));
    CDib straight, moved;
    straight.AttachDIBFileData(bytes.data(), static_cast<DWORD>(bytes.size()));
    bytes[10] = 200; // the file's own word for it
    bytes.push_back(1);
    moved.AttachDIBFileData(bytes.data(), static_cast<DWORD>(bytes.size()));
    EXPECT_EQ(bytesOf(moved.GetBitmapData(), moved.GetDataSize()),
              bytesOf(straight.GetBitmapData(), straight.GetDataSize()));
}

TEST(Dib, ATopDownBitmapHasAHeight)
{
    const Bytes block = fifteenBitDib(-pictureHeight);
    CDib dib;
    dib.AttachDIBData(block.data(), static_cast<DWORD>(block.size()));
    EXPECT_EQ(headerOf(dib).biHeight, -pictureHeight);
    EXPECT_EQ(dib.GetBitmapHeight(), pictureHeight);
}

TEST(Dib, StreamsGoThereAndBack)
{
    CDib dib, back;
    dib.LoadDIBFile(bitmapPath("pal8-pil.bmp").c_str());
    CMemoryStream stream(10, 10);
    dib.WriteStream(stream);
    EXPECT_EQ(stream.GetSize(), 12 + dib.GetInfoSize() + dib.GetDataSize());
    dib.SaveDIBFileToStream(stream);
    EXPECT_EQ(stream.GetSize(), 12 + dib.GetInfoSize() + dib.GetDataSize());
    const Bytes whole = bytesOf(stream.GetMemoryBufferPointer(), stream.GetSize());
    stream.SeekToPos(0);
    back.ReadStream(stream);
    EXPECT_EQ(bytesOf(back.GetBitmapInfo(), back.GetInfoSize()),
              bytesOf(dib.GetBitmapInfo(), dib.GetInfoSize()));
    EXPECT_EQ(bytesOf(back.GetBitmapData(), back.GetDataSize()),
              bytesOf(dib.GetBitmapData(), dib.GetDataSize()));

    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        CMemoryStream cut(part.data(), static_cast<int>(size));
        CDib none;
        ASSERT_NE(ThrownLine([&] { none.ReadStream(cut); }), "nothing") << size;
        ASSERT_FALSE(none.IsValid());
    }
    Bytes wild = whole;
    wild[0] = 1;
    CMemoryStream other(wild.data(), static_cast<int>(wild.size()));
    const std::string text = ThrownLine([&] { CDib().ReadStream(other); });
    EXPECT_NE(text.find("1.01"), std::string::npos) << text;
    EXPECT_NE(text.find("1.00"), std::string::npos) << text;
    wild = whole;
    const LONG huge = 0x7FFFFFFF;
    std::memcpy(&wild[8 + 8], &huge, 4); // the height
    CMemoryStream tall(wild.data(), static_cast<int>(wild.size()));
    EXPECT_EQ(ThrownLine([&] { CDib().ReadStream(tall); }), textOf(message::bitmapUnreadable));

    CMemoryStream nothing(10, 10);
    CDib empty;
    empty.WriteStream(nothing);
    nothing.SeekToPos(0);
    back.ReadStream(nothing);
    EXPECT_EQ(nothing.GetSize(), 12u);
}

TEST(Dib, EmptyKeepsTheSizesAndCopiesAreTheirOwn)
{
    CDib dib, copy;
    dib.LoadDIBFile(bitmapPath("pal4-netpbm.bmp").c_str());
    copy.CopyFrom(dib);
    copy.CopyFrom(copy);
    const DWORD size = dib.GetDataSize();
    const Bytes before = bytesOf(dib.GetBitmapData(), size);
    dib.Empty();
    EXPECT_FALSE(dib.IsValid());
    EXPECT_EQ(dib.GetDataSize(), size);
    EXPECT_EQ(dib.GetSize().cx, 0);
    EXPECT_EQ(bytesOf(copy.GetBitmapData(), size), before);
    copy.CopyFrom(dib);
    EXPECT_FALSE(copy.IsValid());
    EXPECT_EQ(copy.GetDataSize(), size);
}

TEST(Dib, GivenPixelsAreTakenWithoutTheirColours)
{
    BITMAPINFO info{};
    info.bmiHeader = {40, 6, 3, 1, 8, BI_RGB, 0, 0, 0, 2, 0};
    Bytes pixels(18);
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<BYTE>(i + 1);
    CDib dib;
    dib.LoadGlimmerViewBitmap(&info, pixels.data());
    EXPECT_EQ(dib.GetInfoSize(), 40u + 4 * 256);
    EXPECT_EQ(dib.GetDataSize(), 3u * 18);
    EXPECT_EQ(dib.GetBitmapInfo()->bmiHeader.biClrUsed, 0u);
    EXPECT_EQ(bytesOf(dib.GetBitmapData(), 18), pixels);
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biWidth = 2;
    dib.LoadGlimmerViewBitmap(&info, pixels.data());
    EXPECT_EQ(dib.GetInfoSize(), 40u);
    EXPECT_EQ(dib.GetDataSize(), 18u);
    info.bmiHeader.biBitCount = 3;
    EXPECT_EQ(ThrownLine([&] { dib.LoadGlimmerViewBitmap(&info, pixels.data()); }),
              textOf(message::bitmapUnreadable));
}

} // namespace
