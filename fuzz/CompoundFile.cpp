#include "FuzzFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/Storage.h"
#include "corekit/stores/OleFile.h"
#include "corekit/stores/OleStream.h"

#include <memory>

namespace {
void Look(IStorage* storage, int depth)
{
    STATSTG element;
    for (DWORD index = 0; index < 64; ++index) {
        const HRESULT result = storage->StatElement(index, &element);
        if (result == S_FALSE) return;
        IStorage* below = nullptr;
        IStream* stream = nullptr;
        if (depth < 4 && storage->OpenStorage(element.pwcsName, 0, &below) >= 0) {
            Look(below, depth + 1);
            below->Release();
        } else if (storage->OpenStream(element.pwcsName, nullptr, STGM_SHARE_EXCLUSIVE, 0, &stream) >= 0) {
            char buffer[4096];
            DWORD done = 1;
            while (done && stream->Read(buffer, sizeof buffer, &done) >= 0) {
            }
            stream->Write("x", 1, nullptr);
            stream->Release();
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FuzzFile input("compound", data, size);
    COleFile file;
    if (!file.Open(input.Path().c_str(), 0x12)) return 0;
    try {
        Look(file.GetStorage(), 0);
        file.Commit();
    } catch (CException* e) {
        e->Delete();
    }
    return 0;
}
