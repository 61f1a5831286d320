// Record files as the tests see them: a folder of their own, and the bytes on disk as numbers.
#pragma once

#include "corekit/stores/VariableLengthRecordFile.h"

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/framework/Exception.h"
#include "tests/support/TempFolder.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace records {

using Bytes = std::string;
using Header = corekit::detail::RecordFileHeader;
using Extents = std::vector<VLRExtent>;

inline void Patch(const std::string& name, std::size_t at, const void* data, std::size_t size)
{
    std::fstream file(name, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(static_cast<std::streamoff>(at))
        .write(static_cast<const char*>(data), static_cast<std::streamsize>(size));
}
inline void Patch(const std::string& name, std::size_t at, DWORD value) { Patch(name, at, &value, 4); }

inline Header HeaderOf(const Bytes& file)
{
    Header header{};
    std::memcpy(&header, file.data(), std::min(file.size(), sizeof header));
    return header;
}
inline Extents ExtentsAt(const Bytes& file, DWORD offset, DWORD count)
{
    Extents extents(count);
    std::memcpy(extents.data(), file.data() + offset, count * sizeof(VLRExtent));
    return extents;
}
inline Extents MapOf(const Bytes& file)
{
    const Header h = HeaderOf(file);
    return ExtentsAt(file, h.mapOffset, h.mapEntries);
}
inline Extents IndexOf(const Bytes& file)
{
    const Header h = HeaderOf(file);
    return ExtentsAt(file, h.indexOffset, h.indexEntries);
}

// Text that shows where it comes from.
inline Bytes Content(int seed, std::size_t size)
{
    Bytes text(size, 0);
    for (std::size_t i = 0; i < size; ++i)
        text[i] = static_cast<char>('a' + (static_cast<unsigned>(seed) * 131 + i * 7 + i / 256) % 26);
    return text;
}

inline Bytes Get(CVariableLengthRecordFile& file, int record)
{
    void* data = nullptr;
    DWORD size = 0;
    file.GetRecord(record, data, size);
    const Bytes bytes(static_cast<const char*>(data), size);
    safe_free(data);
    return bytes;
}
inline int Add(CVariableLengthRecordFile& file, const Bytes& bytes, int flush = 0)
{
    return file.AddRecord(bytes.data(), static_cast<DWORD>(bytes.size()), flush);
}
inline void Set(CVariableLengthRecordFile& file, int record, const Bytes& bytes)
{
    file.SetRecord(record, bytes.data(), static_cast<DWORD>(bytes.size()), 0);
}

class RecordFileTest : public testing::Test {
protected:
    // A closed file with records of the given sizes, content by number, in sectors of 512 bytes.
    void Make(const std::vector<std::size_t>& sizes, DWORD sectors = 32)
    {
        CVariableLengthRecordFile file;
        ASSERT_EQ(file.CreateFileA(name.c_str(), 512, sectors * 512), 1);
        for (std::size_t i = 0; i < sizes.size(); ++i) Add(file, Content(static_cast<int>(i), sizes[i]));
        file.Close(1);
    }

    TempFolder folder;
    const std::string name = folder / "file.vlr";
};

} // namespace records
