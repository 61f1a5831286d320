#include "corekit/graphics/Dib.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/SafeAlloc.h"
#include "corekit/graphics/DibBlocks.h"
#include "corekit/platform/Dibs.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <cstring>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CDib, CObject)

namespace {

constexpr DWORD streamVersion = 0x100;

// A stream's header: of 40 bytes, with its colours, of a picture that can be drawn.
void checkHeader(const BITMAPINFO& info, DWORD infoSize, DWORD dataSize)
{
    corekit::DibLayout layout;
    if (info.bmiHeader.biCompression != BI_RGB) ThrowChainedException(nullptr, message::bitmapCompressed);
    const bool isSound = info.bmiHeader.biSize == sizeof info.bmiHeader &&
                         ReadDibLayout(info.bmiHeader, layout) &&
                         layout.colours <= (infoSize - sizeof info.bmiHeader) / sizeof(RGBQUAD);
    if (!isSound || !isInProportion(layout.dataSize(), dataSize))
        ThrowChainedException(nullptr, message::bitmapUnreadable);
}

} // namespace

CDib::~CDib() { Empty(); }

void CDib::Empty()
{
    safe_free(m_info);
    safe_free(m_data);
    m_info = nullptr;
    m_data = nullptr;
}

void CDib::Take(BITMAPINFO* info, DWORD infoSize, BYTE* data, DWORD dataSize)
{
    Empty();
    m_info = info;
    m_infoSize = infoSize;
    m_data = data;
    m_dataSize = dataSize;
}

DWORD CDib::BlockSize() const
{
    corekit::DibLayout layout;
    if (!m_info || !ReadDibLayout(m_info->bmiHeader, layout)) return m_dataSize;
    return std::max(m_dataSize, static_cast<DWORD>(layout.dataSize()));
}

void CDib::CopyFrom(const CDib& other)
{
    if (&other == this) return;
    Empty();
    if (!other.IsValid()) return;
    Block info = duplicateBlock(other.m_info, other.m_infoSize),
          data = duplicateBlock(other.m_data, other.BlockSize());
    Take(info.release<BITMAPINFO>(), other.m_infoSize, data.release<BYTE>(), other.m_dataSize);
}

void CDib::LoadGlimmerViewBitmap(BITMAPINFO* given, BYTE* pixels)
{
    Empty();
    if (!given || !pixels) ThrowChainedException(nullptr, message::bitmapUnreadable);
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = given->bmiHeader.biWidth;
    header.biHeight = given->bmiHeader.biHeight;
    header.biPlanes = given->bmiHeader.biPlanes;
    header.biBitCount = given->bmiHeader.biBitCount;
    corekit::DibLayout layout;
    if (!ReadDibLayout(header, layout)) ThrowChainedException(nullptr, message::bitmapUnreadable);

    const DWORD infoSize = static_cast<DWORD>(sizeof header + sizeof(RGBQUAD) * layout.colours);
    const auto bytes =
        static_cast<std::uint64_t>(layout.width) * layout.bits / 8 * static_cast<unsigned>(layout.height);
    const std::uint64_t told = layout.bits == 8 ? bytes * 3 : bytes; // 8 bits are kept in the room of 24
    Block info = zeroedBlock(infoSize), data = zeroedBlock(std::max<std::uint64_t>(told, layout.dataSize()));
    std::memcpy(info.get(), &header, sizeof header);
    std::memcpy(data.get(), pixels, bytes);
    Take(info.release<BITMAPINFO>(), infoSize, data.release<BYTE>(), static_cast<DWORD>(told));
}

void CDib::SaveDIBFileToStream(CMemoryStream&) const {}

void CDib::WriteStream(CStream& stream) const
{
    const DWORD infoSize = IsValid() ? m_infoSize : 0, dataSize = IsValid() ? m_dataSize : 0;
    stream.write_uint32(streamVersion);
    stream.write_uint32(infoSize);
    if (infoSize) stream.Write(m_info, infoSize);
    stream.write_uint32(dataSize);
    if (dataSize) stream.Write(m_data, dataSize);
}

void CDib::ReadStream(CStream& stream)
{
    const DWORD version = stream.read_uint32();
    if (version != streamVersion) ThrowInvalidVersionException("CDib", version, streamVersion);
    const auto checkLeft = [&](DWORD size) {
        if (size > stream.GetSize() - stream.GetCurrentPos())
            ThrowChainedException(nullptr, message::bitmapUnreadable);
    };
    const DWORD infoSize = stream.read_uint32();
    checkLeft(infoSize);
    if (infoSize != 0 && infoSize < sizeof(BITMAPINFOHEADER))
        ThrowChainedException(nullptr, message::bitmapUnreadable);
    Block info = newBlock(infoSize);
    if (infoSize) stream.Read(info.get(), infoSize);
    const DWORD dataSize = stream.read_uint32();
    checkLeft(dataSize);
    if (infoSize == 0)
        return stream.SeekToPos(stream.GetCurrentPos() + dataSize); // an object without a bitmap
    checkHeader(*info.as<BITMAPINFO>(), infoSize, dataSize);
    corekit::DibLayout layout;
    ReadDibLayout(info.as<BITMAPINFO>()->bmiHeader, layout);
    Block data = zeroedBlock(std::max<std::uint64_t>(dataSize, layout.dataSize()));
    if (dataSize) stream.Read(data.get(), dataSize);
    Take(info.release<BITMAPINFO>(), infoSize, data.release<BYTE>(), dataSize);
}
