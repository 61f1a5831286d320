// Arbitrary bytes as the stream form of a line's settings, and as a property store that holds them: what can
// be read is written as it was.
#include "corekit/devices/SerialPortConfig.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PropertyStore.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t formSize = 28;
    CSerialPortConfig config;
    try {
        CMemoryStream in(data, static_cast<int>(size));
        config.ReadStream(in);
        CMemoryStream out(64, 64);
        config.WriteStream(out);
        std::uint8_t written[formSize];
        out.SeekToPos(0);
        out.Read(written, formSize);
        if (size < formSize || std::memcmp(written, data, formSize) != 0) std::abort();
    } catch (CException* e) {
        e->Delete();
    }
    CPropertyStore store;
    try {
        CMemoryStream in(data, static_cast<int>(size));
        store.ReadStream(in);
    } catch (CException* e) {
        e->Delete();
    }
    config.LoadFromPropertyStore(&store);
    config.SaveToPropertyStore(&store);
    return 0;
}
