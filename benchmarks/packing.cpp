// A megabyte of text through CDeflator and CInflator beside the plain calls of zlib. Deflating cannot be
// ahead of it: it is zlib's own work, because what is packed stays byte for byte what zlib makes of it, and
// needs no more memory than two blocks however long the stream is. libdeflate would be faster and packs
// otherwise.
#include "corekit/stores/Deflator.h"
#include "corekit/stores/Inflator.h"
#include "corekit/stores/MemoryStream.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <zlib.h>

namespace {

using Bytes = std::vector<unsigned char>;
constexpr std::size_t size = 1 << 20, block = 65536;

const Bytes& Text()
{
    static const Bytes text = workload::textBytes(size);
    return text;
}

const Bytes& Packed()
{
    static const Bytes packed = [] {
        uLongf length = compressBound(size);
        Bytes bytes(length);
        compress2(bytes.data(), &length, Text().data(), size, Z_DEFAULT_COMPRESSION);
        bytes.resize(length);
        return bytes;
    }();
    return packed;
}

void Done(benchmark::State& state) { state.SetItemsProcessed(state.iterations() * std::int64_t(size)); }

template <class Work>
void Streams(benchmark::State& state, const Bytes& from, int room, Work work)
{
    CMemoryStream in(from.data(), int(from.size())), out(room, room);
    for (auto _ : state) {
        in.SeekToPos(0);
        out.Reset();
        work(in, out);
    }
    Done(state);
}

void OurDeflate(benchmark::State& state)
{
    Streams(state, Text(), size, [](CStream& in, CStream& out) { CDeflator().Deflate(in, out); });
}

void OurInflate(benchmark::State& state)
{
    Streams(state, Packed(), size, [](CStream& in, CStream& out) { CInflator().Inflate(in, out); });
}

// By the block, as a caller of zlib does who does not know the size, and with the result kept, as ours is.
template <class Step>
void Plain(z_stream& z, const Bytes& from, Bytes& to, Step step)
{
    static Bytes kept(size + size / 8);
    std::size_t length = 0;
    int code;
    z.next_in = const_cast<unsigned char*>(from.data());
    z.avail_in = unsigned(from.size());
    do {
        z.next_out = to.data();
        z.avail_out = unsigned(to.size());
        code = step(&z);
        const std::size_t made = to.size() - z.avail_out;
        std::memcpy(kept.data() + length, to.data(), made);
        length += made;
    } while (code == Z_OK);
    benchmark::DoNotOptimize(kept.data());
}

void PlainDeflate(benchmark::State& state)
{
    Bytes to(block);
    for (auto _ : state) {
        z_stream z{};
        deflateInit(&z, Z_DEFAULT_COMPRESSION);
        Plain(z, Text(), to, [](z_stream* s) { return deflate(s, Z_FINISH); });
        deflateEnd(&z);
    }
    Done(state);
}

void PlainInflate(benchmark::State& state)
{
    Bytes to(block);
    for (auto _ : state) {
        z_stream z{};
        inflateInit(&z);
        Plain(z, Packed(), to, [](z_stream* s) { return inflate(s, Z_NO_FLUSH); });
        inflateEnd(&z);
    }
    Done(state);
}

} // namespace

BENCHMARK(OurDeflate)->Name("packing/deflate/corekit");
BENCHMARK(PlainDeflate)->Name("packing/deflate/zlib");
BENCHMARK(OurInflate)->Name("packing/inflate/corekit");
BENCHMARK(PlainInflate)->Name("packing/inflate/zlib");
BENCHMARK_MAIN();
