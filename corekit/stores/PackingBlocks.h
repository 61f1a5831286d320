// The two blocks between the streams and the compressor: what both directions share.
#pragma once

#include "corekit/foundation/Stream.h"

#include <algorithm>
#include <array>
#include <zlib.h>

namespace corekit::detail {

class PackingBlocks {
public:
    PackingBlocks(CStream& in, DWORD count, CStream& out) : m_in(in), m_out(out), m_rest(count) {}

    DWORD Rest() const { return m_rest; } // not yet read from the input

    void ReadInput(z_stream& state)
    {
        const DWORD lot = std::min<DWORD>(m_rest, blockSize);
        if (lot) m_in.Read(m_input.data(), lot);
        m_rest -= lot;
        state.next_in = m_input.data();
        state.avail_in = lot;
    }
    void StartOutput(z_stream& state)
    {
        state.next_out = m_output.data();
        state.avail_out = blockSize;
    }
    // Writes whatever has come out and starts the block anew.
    void WriteOutput(z_stream& state)
    {
        if (const DWORD made = blockSize - state.avail_out) m_out.Write(m_output.data(), made);
        StartOutput(state);
    }

private:
    static constexpr DWORD blockSize = 65536;

    CStream& m_in;
    CStream& m_out;
    DWORD m_rest;
    std::array<Bytef, blockSize> m_input;
    std::array<Bytef, blockSize> m_output;
};

} // namespace corekit::detail
