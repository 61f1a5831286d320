// Both directions beside zlib's own tool and another language's zlib.
#include "corekit/stores/Deflator.h"
#include "corekit/stores/Inflator.h"
#include "corekit/stores/MemoryStream.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <zlib.h>

namespace {

std::string Noise(std::size_t size)
{
    std::mt19937 random(7);
    std::string bytes(size, ' ');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

std::string bytesOf(CMemoryStream& stream)
{
    return {static_cast<const char*>(stream.GetMemoryBufferPointer()), stream.GetSize()};
}

std::string Deflated(const std::string& bytes)
{
    CMemoryStream in(bytes.data(), static_cast<int>(bytes.size())), out(0x1000, 0x10000);
    CDeflator().Deflate(in, out);
    return bytesOf(out);
}

std::string Inflated(const std::string& bytes)
{
    CMemoryStream in(bytes.data(), static_cast<int>(bytes.size())), out(0x1000, 0x10000);
    CInflator().Inflate(in, out);
    return bytesOf(out);
}

// What packs to exactly `size` bytes: noise is stored, so a byte more is a byte more.
std::string PackedTo(std::size_t size)
{
    for (std::size_t length = size - 100; length < size; ++length)
        if (Deflated(Noise(length)).size() == size) return Noise(length);
    return "";
}

const std::string samples[] = {"",
                               "a",
                               std::string(65535, 'x'),
                               std::string(65536, 'x'),
                               std::string(65537, 'x'),
                               std::string(20'000'000, '\0'),
                               Noise(65536),
                               Noise(1'000'000) + std::string(1'000'000, 'y')};
} // namespace

TEST(Packing, EverySizeRoundTheBlocksComesBack)
{
    for (const std::string& sample : samples)
        EXPECT_TRUE(Inflated(Deflated(sample)) == sample) << sample.size();
}

TEST(Packing, OtherReadersTakeWhatIsDeflated)
{
    const TempFolder folder;
    for (const std::string& sample : samples) {
        WriteWhole(folder / "packed.zz", Deflated(sample));
        const std::string unpack = "cd " + folder.Path() +
                                   " && pigz -dc packed.zz > pigz.out && python3 -c "
                                   "'import sys,zlib; sys.stdout.buffer.write(zlib.decompress("
                                   "open(\"packed.zz\",\"rb\").read()))' > python.out";
        ASSERT_EQ(std::system(unpack.c_str()), 0) << sample.size();
        EXPECT_TRUE(ReadWhole(folder / "pigz.out") == sample) << sample.size();
        EXPECT_TRUE(ReadWhole(folder / "python.out") == sample) << sample.size();
    }
}

TEST(Packing, WhatOthersDeflateIsTaken)
{
    const TempFolder folder;
    WriteWhole(folder / "in", samples[7]);
    const std::string pack = "cd " + folder.Path() +
                             " && pigz -9 -z -k -c in > pigz.zz && python3 -c "
                             "'import sys,zlib; sys.stdout.buffer.write(zlib.compress("
                             "open(\"in\",\"rb\").read(),1))' > python.zz";
    ASSERT_EQ(std::system(pack.c_str()), 0);
    EXPECT_TRUE(Inflated(ReadWhole(folder / "pigz.zz")) == samples[7]);
    EXPECT_TRUE(Inflated(ReadWhole(folder / "python.zz")) == samples[7]);
}

TEST(Packing, ChecksumIsThatOfTheBytesThatWereCounted)
{
    const std::string text = "--headline--";
    CMemoryStream in(text.data(), 12), out(100, 100);
    CDeflator deflator;
    EXPECT_EQ(deflator.GetChecksum(), 0u);
    in.SeekToPos(2);
    deflator.Deflate(in, 8, out);
    EXPECT_EQ(deflator.GetChecksum(), adler32(1, reinterpret_cast<const Bytef*>("headline"), 8));
    EXPECT_EQ(in.GetCurrentPos(), 10u);
    EXPECT_EQ(Inflated(bytesOf(out)), "headline");
}

TEST(Packing, InputOfExactlyOneBlockEnds)
{
    const std::string plain = PackedTo(65536);
    ASSERT_FALSE(plain.empty());
    EXPECT_TRUE(Inflated(Deflated(plain)) == plain);
}

TEST(Packing, BytesBehindTheEndAreSkippedAndNotReadForever)
{
    const std::string bytes = Deflated("news") + Noise(200'000);
    CMemoryStream in(bytes.data(), static_cast<int>(bytes.size())), out(100, 100);
    CInflator().Inflate(in, out);
    EXPECT_EQ(bytesOf(out), "news");
    EXPECT_EQ(in.GetCurrentPos(), bytes.size());
}

TEST(Packing, DamageIsNamedInTheInflatersWords)
{
    const std::string sound = Deflated(samples[7]);
    std::string flipped = sound, wrongSum = sound;
    flipped[1'000'040] = static_cast<char>(flipped[1'000'040] ^ 0x10);
    wrongSum.back() = static_cast<char>(wrongSum.back() ^ 1);
    EXPECT_TRUE(Thrown([] { Inflated("no zlib stream"); }).starts_with("[Inflate] incorrect header check"));
    EXPECT_TRUE(Thrown([&] { Inflated(wrongSum); }).starts_with("[Inflate] incorrect data check"));
    EXPECT_TRUE(Thrown([&] { Inflated(flipped); }).starts_with("[Inflate] "));
    EXPECT_EQ(Thrown([&] { Inflated(sound.substr(0, sound.size() - 1)); }), "[Inflate] [-5]");
    EXPECT_EQ(Thrown([] { Inflated(""); }), "[Inflate] [-5]");
    EXPECT_EQ(Thrown([] { Inflated(std::string("\x78\xBB\0\0\0\1", 6)); }), "[Inflate] [2]"); // a dictionary
}

TEST(Packing, FailuresOfTheStreamsPassThrough)
{
    const std::string text(1000, 't');
    CMemoryStream in(text.data(), 1000), full(1, 0);
    EXPECT_TRUE(Thrown([&] { CDeflator().Deflate(in, full); }).starts_with("[Memory Stream] Write requires"));
    in.SeekToPos(0);
    CMemoryStream out(10, 10);
    EXPECT_TRUE(Thrown([&] { CDeflator().Deflate(in, 1001, out); }).starts_with("[Memory Stream] Read past"));
    EXPECT_TRUE(Thrown([&] { CDeflator().Deflate(in, -1, out); }).starts_with("[Memory Stream] Read past"));
}
