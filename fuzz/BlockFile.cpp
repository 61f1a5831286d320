// Any bytes as a block file: opened, its blocks looked at, taken and freed.
#include "corekit/framework/Exception.h"
#include "corekit/stores/BlockMappedFile.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

const std::string name =
    (std::filesystem::exists("/dev/shm") ? "/dev/shm/fuzz-blocks-" : "/tmp/fuzz-blocks-") +
    std::to_string(::getpid());

struct RemoveFile {
    ~RemoveFile() { std::filesystem::remove(name); }
} removeFile;

void Use(CBlockMappedFile& file)
{
    constexpr DWORD some = 100;
    // A file may tell of large blocks, and growth is by 64 of them.
    const bool mayGrow = file.GetBlockSize() <= 4096;
    for (DWORD block = 0; block < std::min(file.GetBlockCount(), some); ++block) {
        file.IsBlockAllocated(block);
        file.IsByteRangeAllocated(block, 3000);
    }
    for (DWORD i = 0; i < 40; ++i) {
        const DWORD block =
            i % 5 ? file.AllocateSingleBlock(mayGrow) : file.AllocateContiguousBytes(i * 300, mayGrow);
        if (void* const bytes = file.DataBlockPtr(block)) std::memset(bytes, 0xFF, file.GetBlockSize());
        if (i % 3 == 0) file.FreeContiguousBlocks(block - 2, 4);
    }
    file.SetClassID({1, 2, 3, {4}});
    file.FreeAllData();
    file.AllocateContiguousBlocks(70, mayGrow);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    for (const int write : {0, 1, 1}) {
        CBlockMappedFile file;
        if (!file.OpenFile(name.c_str(), write)) return 0;
        try {
            Use(file);
        } catch (CException* e) {
            e->Delete();
        }
    }
    return 0;
}
