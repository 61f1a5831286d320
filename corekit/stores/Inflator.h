// CInflator: brings back what CDeflator, or any writer of the zlib form, has compressed.
//
// Memory is bounded whatever the data claim: output goes on to the stream block by block. Failures throw
// CChainedException: those of the streams as they are, damaged, truncated or foreign data as
// message::inflateFailed. What came out before the failure is in the output stream. One thread at a time.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"

class CStream;

class COREKIT_API CInflator : public CObject {
    DECLARE_DYNAMIC(CInflator)

public:
    // Holds nothing, so one object may serve any number of streams.
    CInflator() = default;

    // Expands all from the position of `in` to its end, and writes it at the position of `out`.
    void Inflate(CStream& in, CStream& out);
    // Expands `count` compressed bytes, an unsigned 32-bit number; `in` must have that many. Bytes among
    // them that follow the end of the compressed data are skipped.
    void Inflate(CStream& in, int count, CStream& out);

private:
    static void InflateByBlocks(CStream& in, int count, CStream& out);
    [[noreturn]] static void Except(const char* message, int code);
};
