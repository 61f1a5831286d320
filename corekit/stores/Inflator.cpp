#include "corekit/stores/Inflator.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/PackingBlocks.h"

#include <memory>

IMPLEMENT_DYNAMIC(CInflator, CObject)

void CInflator::Inflate(CStream& in, CStream& out)
{
    Inflate(in, static_cast<int>(in.GetSize() - in.GetCurrentPos()), out);
}

void CInflator::Inflate(CStream& in, int count, CStream& out)
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
