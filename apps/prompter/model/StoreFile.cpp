#include "model/StoreFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/ReplacedFile.h"
#include "corekit/stores/MemoryStream.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace prompter {
namespace {

std::string BytesOf(CPropertyStore& store)
{
    CMemoryStream stream(0, 65536);
    store.WriteStream(stream);
    return {static_cast<const char*>(stream.GetMemoryBufferPointer()), stream.GetSize()};
}

bool HasSameValue(CPropertyStore& a, CPropertyStore& b, const char* name)
{
    CByteArray ofA, ofB;
    return a.GetValue(name, ofA) && b.GetValue(name, ofB) && ofA.GetSize() == ofB.GetSize() &&
           std::equal(ofA.GetData(), ofA.GetData() + ofA.GetSize(), ofB.GetData());
}

void CopyValue(CPropertyStore& from, CPropertyStore& to, const char* name)
{
    StringW text;
    CByteArray bytes;
    int number = 0;
    to.DeleteValue(name);
    if (from.GetPropertyStoreValueType(name) == ePSString && from.GetValue(name, text))
        to.SetValue(name, static_cast<const WCHAR*>(text));
    else if (from.GetPropertyStoreValueType(name) == ePSInteger && from.GetValue(name, number))
        to.SetValue(name, number);
    else if (from.GetValue(name, bytes))
        to.SetValue(name, bytes);
}

} // namespace

std::optional<CPropertyStore> ReadStoreFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    CPropertyStore store;
    try {
        CMemoryStream stream;
        stream.Attach(bytes.data(), static_cast<int>(bytes.size()));
        store.ReadStream(stream);
    } catch (CException* e) {
        e->Delete();
        return std::nullopt;
    }
    return store;
}

bool WriteStoreFile(const std::string& path, CPropertyStore store)
{
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
    corekit::ReplacedFile file(path);
    return file && file.Write(BytesOf(store)) && file.Commit();
}

bool WriteStoreChanges(const std::string& path, CPropertyStore store, CPropertyStore before)
{
    const corekit::FileTurn turn(path);
    CPropertyStore kept = ReadStoreFile(path).value_or(CPropertyStore());
    CArray<StringA, const char*> values, stores;
    store.GetPropertyStoreValueNames(values);
    store.GetPropertyStoreNames(stores);
    for (int i = 0; i < values.GetSize(); ++i) {
        const StringA& name = values[i];
        if (!HasSameValue(store, before, name) || kept.GetPropertyStoreValueType(name) == ePSNone)
            CopyValue(store, kept, name);
    }
    for (int i = 0; i < stores.GetSize(); ++i) {
        CPropertyStore now = store.GetPropertyStore(stores[i]), then = before.GetPropertyStore(stores[i]);
        if (BytesOf(now) != BytesOf(then)) kept.SetPropertyStore(stores[i], now);
    }
    return WriteStoreFile(path, kept);
}

} // namespace prompter
