// Reads a store, and what was read must be written, read again and found the same.
#include "corekit/stores/PropertyStore.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/MemoryStream.h"

#include <cstdlib>
#include <cstring>

namespace {

bool Read(CPropertyStore& store, const void* data, DWORD size)
{
    CMemoryStream stream(data, static_cast<int>(size));
    try {
        store.ReadStream(stream);
        return true;
    } catch (CException* refused) {
        refused->Delete();
        return false;
    }
}

void LookAtEach(CPropertyStore& store)
{
    for (int i = 0; i < store.GetPropertyStoreValueCount(); ++i) {
        const StringA name = store.GetPropertyStoreValueName(i);
        StringW text;
        GUID guid;
        if (!store.GetValue(name, text) || !store.GetValue(name, guid)) std::abort();
    }
    for (int i = 0; i < store.GetPropertyStoreCount(); ++i) {
        if (!store.PropertyStoreExists(store.GetPropertyStoreName(i))) std::abort();
        CPropertyStore nested = store.GetPropertyStore(i);
        LookAtEach(nested);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CPropertyStore store;
    Read(store, data, static_cast<DWORD>(size));
    LookAtEach(store);
    CMemoryStream first(256, 4096), second(256, 4096);
    store.WriteStream(first);
    CPropertyStore again;
    if (!Read(again, first.GetMemoryBufferPointer(), first.GetSize())) std::abort();
    again.WriteStream(second);
    if (first.GetSize() != second.GetSize()) std::abort();
    if (std::memcmp(first.GetMemoryBufferPointer(), second.GetMemoryBufferPointer(), first.GetSize()) != 0)
        std::abort();
    while (again.GetPropertyStoreValueCount() > 0) again.DeleteValue(again.GetPropertyStoreValueName(0));
    return 0;
}
