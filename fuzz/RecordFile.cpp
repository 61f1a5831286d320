// Any bytes as a record file: opened and worked with, checked, repaired twice and salvaged.
#include "corekit/foundation/SafeAlloc.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/RecordFileSalvage.h"
#include "corekit/stores/VariableLengthRecordFile.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

const std::string folder = std::filesystem::exists("/dev/shm") ? "/dev/shm/" : "/tmp/";
const std::string name = folder + "fuzz-records-" + std::to_string(::getpid());
const std::string salvaged = name + "-salvaged";

struct RemoveFiles {
    ~RemoveFiles()
    {
        std::filesystem::remove(name);
        std::filesystem::remove(salvaged);
    }
} removeFiles;

template <class Act>
void Try(Act act)
{
    try {
        act();
    } catch (CException* e) {
        e->Delete();
    }
}

void Write(const std::uint8_t* data, std::size_t size)
{
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

void Use()
{
    CVariableLengthRecordFile file;
    if (!file.OpenFile(name.c_str())) return;
    const int some = std::min(file.GetRecordCount(), 40);
    for (int i = 0; i < some; ++i)
        Try([&] {
            void* block = nullptr;
            DWORD size = 0;
            file.GetRecord(i, block, size);
            safe_free(block);
        });
    const std::string content(3000, 'c');
    for (int i = 0; i < some; i += 3) Try([&] { file.DeleteRecord(i, 0); });
    for (int i = 1; i < some; i += 3)
        Try([&] { file.ReplaceRecord(i, content.data(), static_cast<DWORD>(i * 70), 0); });
    for (int i = 0; i < 10; ++i)
        Try([&] { file.AddRecord(content.data(), static_cast<DWORD>(i * 300), i == 9); });
    Try([&] { file.SetRecord(some + 5, content.data(), 100, 0); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Write(data, size);
    Use();
    Write(data, size);
    Try([] { SalvageRecordFile(name.c_str(), salvaged.c_str()); });
    std::filesystem::remove(salvaged);
    for (const int repair : {0, 1, 1}) {
        CVariableLengthRecordFile file;
        Try([&] { file.CheckFile(name.c_str(), 0, 0, repair); });
    }
    Use();
    return 0;
}
