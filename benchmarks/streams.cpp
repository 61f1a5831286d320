// Typed values through the memory and file streams beside the streams and packers of other libraries.
#include "corekit/platform/Files.h"
#include "corekit/stores/FileStream.h"
#include "corekit/stores/MemoryStream.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <cereal/archives/binary.hpp>
#include <cereal/types/string.hpp>
#include <cstdio>
#include <fstream>
#define MSGPACK_NO_BOOST
#include <msgpack.hpp>
#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <sstream>

namespace {

using workload::StreamItem;

const std::vector<StreamItem>& Items()
{
    static const auto items = workload::streamItems();
    return items;
}

void Done(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * std::int64_t(Items().size()));
    state.SetBytesProcessed(state.iterations() * std::int64_t(workload::streamBytes(Items())));
}

const std::string& Path()
{
    static const std::string path = workload::scratch("streams.bin");
    return path;
}

// --- the typed layer

// Inlined, as in code that makes a stream and uses it: the calls then go straight to the stream's own
// functions.
template <class Stream>
[[gnu::always_inline]] inline void PutItem(Stream& stream, const StreamItem& item)
{
    switch (item.kind) {
    case StreamItem::I8:
        return stream.write_int8(static_cast<signed char>(item.number));
    case StreamItem::I16:
        return stream.write_int16(SHORT(item.number));
    case StreamItem::I32:
        return stream.write_int32(LONG(item.number));
    case StreamItem::I64:
        return stream.write_int64(item.number);
    case StreamItem::F64:
        return stream.Write(&item.real, 8);
    case StreamItem::Text:
        return stream.Write(item.text.c_str());
    }
}

template <class Stream>
[[gnu::always_inline]] inline std::uint64_t GetItem(Stream& stream, StreamItem::Kind kind)
{
    switch (kind) {
    case StreamItem::I8:
        return std::uint64_t(stream.read_int8());
    case StreamItem::I16:
        return std::uint64_t(stream.read_int16());
    case StreamItem::I32:
        return std::uint64_t(stream.read_int32());
    case StreamItem::I64:
        return std::uint64_t(stream.read_int64());
    case StreamItem::F64: {
        double value;
        stream.Read(&value, 8);
        return std::uint64_t(value);
    }
    case StreamItem::Text: {
        StringW text;
        stream.Read(text);
        benchmark::DoNotOptimize(text);
        return std::uint64_t(text.GetLength());
    }
    }
    return 0;
}

template <class Stream>
[[gnu::always_inline]] inline void PutAll(Stream& stream)
{
    for (const auto& item : Items()) PutItem(stream, item);
}

template <class Stream>
[[gnu::always_inline]] inline void GetAll(Stream& stream)
{
    std::uint64_t sum = 0;
    for (const auto& item : Items()) sum += GetItem(stream, item.kind);
    benchmark::DoNotOptimize(sum);
}

void MemoryWrite(benchmark::State& state)
{
    for (auto _ : state) {
        CMemoryStream stream(0, 65536);
        PutAll(stream);
        benchmark::DoNotOptimize(stream.GetMemoryBufferPointer());
    }
    Done(state);
}

void MemoryRead(benchmark::State& state)
{
    CMemoryStream stream(0, 65536);
    PutAll(stream);
    for (auto _ : state) {
        stream.SeekToPos(0);
        GetAll(stream);
    }
    Done(state);
}

void FileWrite(benchmark::State& state)
{
    for (auto _ : state) {
        CFileStream stream;
        stream.Open(Path().c_str(), GENERIC_READ | GENERIC_WRITE, 0, CREATE_ALWAYS, 0);
        PutAll(stream);
        stream.Flush();
    }
    Done(state);
}

void FileRead(benchmark::State& state)
{
    {
        CFileStream stream;
        stream.Open(Path().c_str(), GENERIC_READ | GENERIC_WRITE, 0, CREATE_ALWAYS, 0);
        PutAll(stream);
        stream.Flush();
    }
    for (auto _ : state) {
        CFileStream stream;
        stream.Open(Path().c_str(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0);
        GetAll(stream);
    }
    Done(state);
}

// --- byte streams: the same wire form, written out by hand

template <class Out>
void PutRaw(Out&& raw, const StreamItem& item)
{
    const auto put = [&raw](auto value) { raw(&value, sizeof value); };
    switch (item.kind) {
    case StreamItem::I8:
        return put(std::int8_t(item.number));
    case StreamItem::I16:
        return put(std::int16_t(item.number));
    case StreamItem::I32:
        return put(std::int32_t(item.number));
    case StreamItem::I64:
        return put(item.number);
    case StreamItem::F64:
        return put(item.real);
    case StreamItem::Text:
        put(std::uint16_t(item.text.size()));
        raw(item.text.data(), 2 * item.text.size());
    }
}

template <class In>
std::uint64_t GetRaw(In&& raw, StreamItem::Kind kind)
{
    const auto get = [&raw](auto value) {
        raw(&value, sizeof value);
        return std::uint64_t(value);
    };
    switch (kind) {
    case StreamItem::I8:
        return get(std::int8_t());
    case StreamItem::I16:
        return get(std::int16_t());
    case StreamItem::I32:
        return get(std::int32_t());
    case StreamItem::I64:
        return get(std::int64_t());
    case StreamItem::F64:
        return get(double());
    case StreamItem::Text: {
        std::u16string text(get(std::uint16_t()), 0);
        raw(text.data(), 2 * text.size());
        benchmark::DoNotOptimize(text.data());
        return text.size();
    }
    }
    return 0;
}

template <class In>
void GetAllRaw(In&& raw)
{
    std::uint64_t sum = 0;
    for (const auto& item : Items()) sum += GetRaw(raw, item.kind);
    benchmark::DoNotOptimize(sum);
}

std::string Packed()
{
    std::ostringstream out;
    for (const auto& item : Items()) {
        PutRaw([&out](const void* p,
                      std::size_t n) { out.write(static_cast<const char*>(p), std::streamsize(n)); },
               item);
    }
    return out.str();
}

void MemoryReadStd(benchmark::State& state)
{
    const std::string packed = Packed();
    for (auto _ : state) {
        std::istringstream in(packed);
        GetAllRaw([&in](void* p, std::size_t n) { in.read(static_cast<char*>(p), std::streamsize(n)); });
    }
    Done(state);
}

void FileWriteStdio(benchmark::State& state)
{
    std::vector<char> buffer(65536);
    for (auto _ : state) {
        std::FILE* file = std::fopen(Path().c_str(), "wb");
        std::setvbuf(file, buffer.data(), _IOFBF, buffer.size());
        for (const auto& item : Items()) {
            PutRaw([file](const void* p, std::size_t n) { fwrite_unlocked(p, 1, n, file); }, item);
        }
        std::fclose(file);
    }
    Done(state);
}

void FileReadStdio(benchmark::State& state)
{
    std::ofstream(Path(), std::ios::binary | std::ios::trunc) << Packed();
    std::vector<char> buffer(65536);
    for (auto _ : state) {
        std::FILE* file = std::fopen(Path().c_str(), "rb");
        std::setvbuf(file, buffer.data(), _IOFBF, buffer.size());
        GetAllRaw([file](void* p, std::size_t n) {
            if (fread_unlocked(p, 1, n, file) != n) std::abort();
        });
        std::fclose(file);
    }
    Done(state);
}

// --- packers with forms of their own

void PutQt(QDataStream& stream, const StreamItem& item)
{
    switch (item.kind) {
    case StreamItem::I8:
        stream << qint8(item.number);
        break;
    case StreamItem::I16:
        stream << qint16(item.number);
        break;
    case StreamItem::I32:
        stream << qint32(item.number);
        break;
    case StreamItem::I64:
        stream << qint64(item.number);
        break;
    case StreamItem::F64:
        stream << item.real;
        break;
    case StreamItem::Text:
        stream << QStringView(item.text).toString();
        break;
    }
}

template <class T>
std::uint64_t TakeQt(QDataStream& stream)
{
    T value;
    stream >> value;
    if constexpr (std::is_same_v<T, QString>)
        return std::uint64_t(value.size());
    else
        return std::uint64_t(value);
}

std::uint64_t GetQt(QDataStream& stream, StreamItem::Kind kind)
{
    switch (kind) {
    case StreamItem::I8:
        return TakeQt<qint8>(stream);
    case StreamItem::I16:
        return TakeQt<qint16>(stream);
    case StreamItem::I32:
        return TakeQt<qint32>(stream);
    case StreamItem::I64:
        return TakeQt<qint64>(stream);
    case StreamItem::F64:
        return TakeQt<double>(stream);
    case StreamItem::Text:
        return TakeQt<QString>(stream);
    }
    return 0;
}

void PutAllQt(QIODevice& device)
{
    QDataStream stream(&device);
    stream.setByteOrder(QDataStream::LittleEndian);
    for (const auto& item : Items()) PutQt(stream, item);
}

void GetAllQt(QIODevice& device)
{
    QDataStream stream(&device);
    stream.setByteOrder(QDataStream::LittleEndian);
    std::uint64_t sum = 0;
    for (const auto& item : Items()) sum += GetQt(stream, item.kind);
    benchmark::DoNotOptimize(sum);
}

void MemoryWriteQt(benchmark::State& state)
{
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        PutAllQt(buffer);
        benchmark::DoNotOptimize(buffer.data());
    }
    Done(state);
}

void MemoryReadQt(benchmark::State& state)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    PutAllQt(buffer);
    for (auto _ : state) {
        buffer.seek(0);
        GetAllQt(buffer);
    }
    Done(state);
}

void FileQt(benchmark::State& state, QIODevice::OpenMode mode, void (*run)(QIODevice&))
{
    for (auto _ : state) {
        QFile file(QString::fromStdString(Path()));
        if (!file.open(mode)) state.SkipWithError("open");
        run(file);
    }
    Done(state);
}

void FileWriteQt(benchmark::State& state)
{
    FileQt(state, QIODevice::WriteOnly | QIODevice::Truncate, PutAllQt);
}

void FileReadQt(benchmark::State& state)
{
    {
        QFile file(QString::fromStdString(Path()));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) state.SkipWithError("open");
        PutAllQt(file);
    }
    FileQt(state, QIODevice::ReadOnly, GetAllQt);
}

void MemoryWriteCereal(benchmark::State& state)
{
    for (auto _ : state) {
        std::ostringstream out;
        cereal::BinaryOutputArchive archive(out);
        for (const auto& item : Items()) {
            switch (item.kind) {
            case StreamItem::I8:
                archive(std::int8_t(item.number));
                break;
            case StreamItem::I16:
                archive(std::int16_t(item.number));
                break;
            case StreamItem::I32:
                archive(std::int32_t(item.number));
                break;
            case StreamItem::I64:
                archive(item.number);
                break;
            case StreamItem::F64:
                archive(item.real);
                break;
            case StreamItem::Text:
                archive(item.text);
                break;
            }
        }
        benchmark::DoNotOptimize(out.tellp());
    }
    Done(state);
}

void MemoryWriteMsgpack(benchmark::State& state)
{
    for (auto _ : state) {
        msgpack::sbuffer buffer;
        msgpack::packer<msgpack::sbuffer> packer(buffer);
        for (const auto& item : Items()) {
            switch (item.kind) {
            case StreamItem::I8:
                packer.pack(std::int8_t(item.number));
                break;
            case StreamItem::I16:
                packer.pack(std::int16_t(item.number));
                break;
            case StreamItem::I32:
                packer.pack(std::int32_t(item.number));
                break;
            case StreamItem::I64:
                packer.pack(item.number);
                break;
            case StreamItem::F64:
                packer.pack(item.real);
                break;
            case StreamItem::Text: {
                const auto bytes = std::uint32_t(2 * item.text.size());
                packer.pack_bin(bytes).pack_bin_body(reinterpret_cast<const char*>(item.text.data()), bytes);
                break;
            }
            }
        }
        benchmark::DoNotOptimize(buffer.data());
    }
    Done(state);
}

} // namespace

BENCHMARK(MemoryWrite)->Name("streams/memory_write/corekit");
BENCHMARK(MemoryWriteMsgpack)->Name("streams/memory_write/msgpack");
BENCHMARK(MemoryWriteCereal)->Name("streams/memory_write/cereal_binary");
BENCHMARK(MemoryWriteQt)->Name("streams/memory_write/qt6_qdatastream");
BENCHMARK(MemoryRead)->Name("streams/memory_read/corekit");
BENCHMARK(MemoryReadStd)->Name("streams/memory_read/std_istringstream");
BENCHMARK(MemoryReadQt)->Name("streams/memory_read/qt6_qdatastream");
BENCHMARK(FileWrite)->Name("streams/file_write/corekit");
BENCHMARK(FileWriteStdio)->Name("streams/file_write/stdio_unlocked_64k");
BENCHMARK(FileWriteQt)->Name("streams/file_write/qt6_qdatastream");
BENCHMARK(FileRead)->Name("streams/file_read/corekit");
BENCHMARK(FileReadStdio)->Name("streams/file_read/stdio_unlocked_64k");
BENCHMARK(FileReadQt)->Name("streams/file_read/qt6_qdatastream");
BENCHMARK_MAIN();
