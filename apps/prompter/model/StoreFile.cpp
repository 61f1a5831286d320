#include "model/StoreFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/ReplacedFile.h"
#include "corekit/stores/MemoryStream.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace prompter {

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
    CMemoryStream stream(0, 65536);
    store.WriteStream(stream);
    const auto* const bytes = static_cast<const char*>(stream.GetMemoryBufferPointer());
    corekit::ReplacedFile file(path);
    return file && file.Write({bytes, stream.GetSize()}) && file.Commit();
}

} // namespace prompter
