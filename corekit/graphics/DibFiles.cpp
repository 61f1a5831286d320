// Bitmaps from and to files, and from the memory that holds one.
#include "corekit/foundation/ChainedException.h"
#include "corekit/graphics/Dib.h"
#include "corekit/graphics/DibBlocks.h"
#include "corekit/platform/Dibs.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/ReplacedFile.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

using namespace corekit::detail;

namespace {

constexpr WORD fileMagic = 19778; // "BM"
constexpr DWORD fileHeaderSize = 14;
constexpr DWORD infoHeaderSize = sizeof(BITMAPINFOHEADER);
constexpr DWORD coreHeaderSize = 12;
constexpr DWORD coreColourSize = 3;

template <typename T>
T valueAt(const BYTE* bytes)
{
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

[[noreturn]] void throwUnreadable(CException* inner = nullptr)
{
    ThrowChainedException(inner, message::bitmapUnreadable);
}

class OpenFile {
public:
    explicit OpenFile(const char* path)
        : m_handle(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               FILE_FLAG_SEQUENTIAL_SCAN, nullptr))
    {
    }
    ~OpenFile()
    {
        if (isOpen()) CloseHandle(m_handle);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE handle() const { return m_handle; }

private:
    HANDLE m_handle;
};

std::string_view bytesOf(const void* bytes, DWORD count) { return {static_cast<const char*>(bytes), count}; }

std::array<BYTE, fileHeaderSize> fileHeader(DWORD infoSize, DWORD dataSize)
{
    std::array<BYTE, fileHeaderSize> header{};
    const DWORD size = dataSize + infoSize + fileHeaderSize, offset = infoSize + fileHeaderSize;
    std::memcpy(&header[0], &fileMagic, sizeof fileMagic);
    std::memcpy(&header[2], &size, sizeof size);
    std::memcpy(&header[10], &offset, sizeof offset);
    return header;
}

} // namespace

// Bytes in order. What is not there is message::bitmapUnreadable.
class CDib::Source {
public:
    virtual ~Source() = default;
    void Read(void* to, std::uint64_t count)
    {
        if (count > m_left || !DoRead(to, count)) throwUnreadable();
        m_left -= count;
    }
    void Skip(std::uint64_t count)
    {
        BYTE unused[256];
        for (; count > 0; count -= std::min<std::uint64_t>(count, sizeof unused))
            Read(unused, std::min<std::uint64_t>(count, sizeof unused));
    }
    std::uint64_t Left() const { return m_left; }

protected:
    explicit Source(std::uint64_t size) : m_left(size) {}

private:
    virtual bool DoRead(void* to, std::uint64_t count) = 0;
    std::uint64_t m_left;
};

class CDib::FileSource final : public CDib::Source {
public:
    FileSource(HANDLE file, std::uint64_t size) : Source(size), m_file(file) {}

private:
    bool DoRead(void* to, std::uint64_t count) override
    {
        DWORD moved = 0;
        return count <= INT_MAX && ReadFile(m_file, to, static_cast<DWORD>(count), &moved, nullptr) &&
               moved == count;
    }
    const HANDLE m_file;
};

class CDib::MemorySource final : public CDib::Source {
public:
    MemorySource(const BYTE* data, DWORD size) : Source(data ? size : 0), m_at(data) {}

private:
    bool DoRead(void* to, std::uint64_t count) override
    {
        std::memcpy(to, m_at, count);
        m_at += count;
        return true;
    }
    const BYTE* m_at;
};

DWORD CDib::DIBNumColors(BYTE* header)
{
    constexpr DWORD coloursUsedAt = 32, infoBitsAt = 14, coreBitsAt = 10;
    const bool isInfo = valueAt<DWORD>(header) == infoHeaderSize;
    if (isInfo)
        if (const auto used = valueAt<DWORD>(header + coloursUsedAt)) return used;
    switch (valueAt<WORD>(header + (isInfo ? infoBitsAt : coreBitsAt))) {
    case 1:
        return 2;
    case 4:
        return 16;
    case 8:
        return 256;
    default:
        return 0;
    }
}

BITMAPINFO* CDib::RetreiveBitmapInfo(BYTE* header)
{
    const DWORD colours = DIBNumColors(header);
    const std::uint64_t size = infoHeaderSize + std::uint64_t{sizeof(RGBQUAD)} * colours;
    if (valueAt<DWORD>(header) == infoHeaderSize) return duplicateBlock(header, size).release<BITMAPINFO>();
    Block block = zeroedBlock(size);
    auto* const info = block.as<BITMAPINFO>();
    info->bmiHeader.biSize = infoHeaderSize;
    info->bmiHeader.biWidth = valueAt<WORD>(header + 4);
    info->bmiHeader.biHeight = valueAt<WORD>(header + 6);
    info->bmiHeader.biPlanes = valueAt<WORD>(header + 8);
    info->bmiHeader.biBitCount = valueAt<WORD>(header + 10);
    info->bmiHeader.biClrUsed = colours;
    BYTE* const table = block.as<BYTE>() + infoHeaderSize;
    for (DWORD i = 0; i < colours; ++i)
        std::memcpy(table + i * sizeof(RGBQUAD), header + coreHeaderSize + i * coreColourSize,
                    coreColourSize);
    return block.release<BITMAPINFO>();
}

// The pixels follow header and colours at once, whatever a file says of their place.
void CDib::ReadImage(Source& source)
{
    BYTE start[infoHeaderSize] = {};
    source.Read(start, sizeof(DWORD));
    const auto headerSize = valueAt<DWORD>(start);
    const bool isInfo = headerSize == infoHeaderSize;
    if (headerSize < coreHeaderSize) throwUnreadable();
    const DWORD known = isInfo ? infoHeaderSize : coreHeaderSize;
    source.Read(start + sizeof(DWORD), known - sizeof(DWORD));
    const DWORD colours = DIBNumColors(start);
    const std::uint64_t tableSize = std::uint64_t{isInfo ? sizeof(RGBQUAD) : coreColourSize} * colours;
    if (tableSize > source.Left()) throwUnreadable();
    const Block header = newBlock(known + tableSize);
    std::memcpy(header.get(), start, known);
    source.Read(header.as<BYTE>() + known, tableSize);
    Block info(RetreiveBitmapInfo(header.as<BYTE>()));

    Empty();
    const BITMAPINFOHEADER& read = info.as<BITMAPINFO>()->bmiHeader;
    if (read.biCompression != BI_RGB) ThrowChainedException(nullptr, message::bitmapCompressed);
    corekit::DibLayout layout;
    if (!ReadDibLayout(read, layout)) throwUnreadable();
    source.Skip(headerSize - known);
    if (!isInProportion(layout.dataSize(), source.Left())) throwUnreadable();
    Block data = zeroedBlock(layout.dataSize());
    source.Read(data.get(), std::min<std::uint64_t>(layout.dataSize(), source.Left()));
    Take(info.release<BITMAPINFO>(), infoHeaderSize + DWORD{sizeof(RGBQUAD)} * colours, data.release<BYTE>(),
         static_cast<DWORD>(layout.dataSize()));
}

void CDib::LoadDIBFile(const char* path)
{
    const OpenFile file(path);
    if (!file.isOpen()) throwUnreadable(GetLastErrorException());
    DWORD high = 0;
    const DWORD low = GetFileSize(file.handle(), &high);
    FileSource source(file.handle(), std::uint64_t{high} << 32 | low);
    BYTE header[fileHeaderSize];
    source.Read(header, sizeof header);
    if (valueAt<WORD>(header) != fileMagic) throwUnreadable();
    ReadImage(source);
}

void CDib::AttachDIBFileData(const BYTE* data, DWORD size)
{
    MemorySource source(data, size);
    BYTE header[fileHeaderSize];
    source.Read(header, sizeof header);
    if (valueAt<WORD>(header) != fileMagic) throwUnreadable();
    ReadImage(source);
}

void CDib::AttachDIBData(const BYTE* data, DWORD size)
{
    MemorySource source(data, size);
    ReadImage(source);
}

void CDib::SaveDIBFile(const char* path) const
{
    if (!IsValid()) ThrowChainedException(nullptr, message::bitmapCreateFailed);
    corekit::ReplacedFile file(path ? path : "");
    if (file) m_info->bmiHeader.biSizeImage = m_dataSize;
    const auto header = fileHeader(m_infoSize, m_dataSize);
    if (file && file.Write(bytesOf(header.data(), fileHeaderSize)) &&
        file.Write(bytesOf(m_info, m_infoSize)) && file.Write(bytesOf(m_data, m_dataSize)) && file.Commit())
        return;
    ThrowChainedException(GetLastErrorException(), message::bitmapCreateFailed);
}
