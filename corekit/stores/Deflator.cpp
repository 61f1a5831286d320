#include "corekit/stores/Deflator.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/PackingBlocks.h"

#include <memory>

IMPLEMENT_DYNAMIC(CDeflator, CObject)

void CDeflator::Deflate(CStream& in, CStream& out)
{
    Deflate(in, static_cast<int>(in.GetSize() - in.GetCurrentPos()), out);
}

void CDeflator::Deflate(CStream& in, int count, CStream& out)
{
    z_stream state{};
    if (const int code = deflateInit(&state, Z_DEFAULT_COMPRESSION)) Except(state.msg, code);
    const std::unique_ptr<z_stream, decltype(&deflateEnd)> guard(&state, &deflateEnd);

    corekit::detail::PackingBlocks blocks(in, static_cast<DWORD>(count), out);
    blocks.StartOutput(state);
    for (blocks.ReadInput(state); state.avail_in != 0;) {
        if (const int code = deflate(&state, Z_NO_FLUSH)) Except(state.msg, code);
        blocks.WriteOutput(state);
        if (state.avail_in == 0) blocks.ReadInput(state);
    }
    for (int code = Z_OK; code != Z_STREAM_END; blocks.WriteOutput(state)) {
        code = deflate(&state, Z_FINISH);
        if (code != Z_OK && code != Z_STREAM_END) Except(state.msg, code);
    }
    m_checksum = static_cast<DWORD>(state.adler);
}

void CDeflator::Except(const char* message, int code)
{
    CString text(message);
    if (!message) text.Format("[%d]", code);
    ThrowChainedException(nullptr, message::deflateFailed, text);
}
