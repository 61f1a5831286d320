// CDeflator: compresses what lies in one stream into another.
//
// The form is zlib's: its header, the data at the default level, its Adler-32. Nothing is written around
// it, so whoever wants to know where it ends stores that beside it. Failures throw CChainedException: those
// of the streams as they are, those of the compressor as message::deflateFailed. One thread at a time.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CStream;

class COREKIT_API CDeflator : public CObject {
    DECLARE_DYNAMIC(CDeflator)

public:
    // Holds nothing but the last checksum, so one object may serve any number of streams.
    CDeflator() = default;

    // Compresses all from the position of `in` to its end. `out` is written at its position. The two must
    // not be the same stream. Takes less than 512 KiB of memory, whatever the size.
    void Deflate(CStream& in, CStream& out);
    // Compresses `count` bytes, an unsigned 32-bit number, from the position of `in`; both positions end
    // behind what was read and written. Where `in` ends early its exception comes out, and `out` holds a
    // part.
    void Deflate(CStream& in, int count, CStream& out);

    // The Adler-32 of the bytes that the last whole run read; 0 before the first.
    DWORD GetChecksum() const { return m_checksum; }

private:
    [[noreturn]] static void Except(const char* message, int code);

    DWORD m_checksum = 0;
};
