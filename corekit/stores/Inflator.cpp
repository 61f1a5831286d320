#include "corekit/stores/Inflator.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PackingBlocks.h"

#include <libdeflate.h>
#include <memory>

IMPLEMENT_DYNAMIC(CInflator, CObject)

namespace {

// What is packed in so many bytes and unpacked in so many is taken whole, which is twice as fast; the rest
// goes by the block.
constexpr DWORD mostPacked = 1 << 20, mostUnpacked = 1 << 24;

// False if the bytes are no whole and sound stream that unpacks to so little; then nothing is written.
bool inflateWhole(const BYTE* packed, DWORD count, CStream& out)
{
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> state(
        libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    for (DWORD room = 4 * count; state && room <= mostUnpacked; room *= 4) {
        const auto bytes = std::make_unique_for_overwrite<BYTE[]>(room);
        std::size_t read = 0, made = 0;
        const libdeflate_result result =
            libdeflate_zlib_decompress_ex(state.get(), packed, count, bytes.get(), room, &read, &made);
        if (result == LIBDEFLATE_INSUFFICIENT_SPACE) continue;
        if (result == LIBDEFLATE_SUCCESS) out.Write(bytes.get(), static_cast<DWORD>(made));
        return result == LIBDEFLATE_SUCCESS;
    }
    return false;
}

} // namespace

void CInflator::Inflate(CStream& in, CStream& out)
{
    Inflate(in, static_cast<int>(in.GetSize() - in.GetCurrentPos()), out);
}

void CInflator::Inflate(CStream& in, int count, CStream& out)
{
    if (count <= 0 || static_cast<DWORD>(count) > mostPacked) return InflateByBlocks(in, count, out);
    const auto size = static_cast<DWORD>(count);
    const auto packed = std::make_unique_for_overwrite<BYTE[]>(size);
    in.Read(packed.get(), size);
    if (inflateWhole(packed.get(), size, out)) return;
    CMemoryStream again(packed.get(), count);
    InflateByBlocks(again, count, out);
}

void CInflator::InflateByBlocks(CStream& in, int count, CStream& out)
{
    z_stream state{};
    if (const int code = inflateInit(&state)) Except(state.msg, code);
    const std::unique_ptr<z_stream, decltype(&inflateEnd)> guard(&state, &inflateEnd);

    corekit::detail::PackingBlocks blocks(in, static_cast<DWORD>(count), out);
    blocks.StartOutput(state);
    int code = Z_OK;
    for (blocks.ReadInput(state); state.avail_in != 0 && code != Z_STREAM_END;) {
        code = inflate(&state, Z_NO_FLUSH);
        blocks.WriteOutput(state);
        if (code != Z_OK && code != Z_STREAM_END) Except(state.msg, code);
        if (state.avail_in == 0) blocks.ReadInput(state);
    }
    while (code != Z_STREAM_END) { // what fits into no further call is an end that never came
        code = inflate(&state, Z_FINISH);
        blocks.WriteOutput(state);
        if (code != Z_OK && code != Z_STREAM_END) Except(state.msg, code);
    }
    while (blocks.Rest()) blocks.ReadInput(state);
}

void CInflator::Except(const char* message, int code)
{
    CString text(message);
    if (!message) text.Format("[%d]", code);
    ThrowChainedException(nullptr, message::inflateFailed, text);
}
