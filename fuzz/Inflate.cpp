// Arbitrary bytes as compressed data; what comes out is thrown away beyond a few megabytes.
#include "corekit/framework/Exception.h"
#include "corekit/stores/Inflator.h"
#include "corekit/stores/MemoryStream.h"

#include <cstddef>

namespace {
class Drain : public CMemoryStream {
    DWORD m_rest = 8 << 20;

protected:
    void InternalWrite(const void*, DWORD count) override
    {
        if (count > m_rest) AfxThrowUserException();
        m_rest -= count;
    }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CMemoryStream in(data, static_cast<int>(size));
    Drain out;
    try {
        CInflator().Inflate(in, out);
    } catch (CException* refused) {
        refused->Delete();
    }
    return 0;
}
