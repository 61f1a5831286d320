#include "corekit/graphics/Dib.h"
#include "corekit/foundation/ChainedException.h"
#include "corekit/stores/MemoryStream.h"

#include <cstdint>

// Whatever bytes say of a picture, it is loaded whole, and then saves and streams to itself, or it is
// refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) return 0;
    CDib dib, copy;
    try {
        switch (data[0] % 3) {
        case 0:
            dib.AttachDIBFileData(data + 1, static_cast<DWORD>(size - 1));
            break;
        case 1:
            dib.AttachDIBData(data + 1, static_cast<DWORD>(size - 1));
            break;
        default:
            CMemoryStream in(data + 1, static_cast<int>(size - 1));
            dib.ReadStream(in);
        }
        CMemoryStream out(4096, 4096);
        dib.WriteStream(out);
        out.SeekToPos(0);
        copy.ReadStream(out);
        if (copy.IsValid() != dib.IsValid() || copy.GetSize().cy != dib.GetSize().cy) __builtin_trap();
    } catch (CException* e) {
        e->Delete();
    }
    return 0;
}
