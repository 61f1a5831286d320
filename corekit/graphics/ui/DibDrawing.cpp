// What a bitmap does with contexts.
#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/graphics/Dib.h"
#include "corekit/graphics/DibBlocks.h"
#include "corekit/platform/Dibs.h"
#include "corekit/platform/Resources.h"
#include "corekit/resources/Messages.h"

#include <algorithm>

using namespace corekit::detail;

namespace {

// The room of the colour table: four bytes for each colour that so many bits tell apart, though none has more
// than 256.
DWORD infoSizeFor(unsigned bits)
{
    constexpr DWORD headerSize = sizeof(BITMAPINFOHEADER), mostColours = 256 * sizeof(RGBQUAD);
    return headerSize + std::min(DWORD{sizeof(RGBQUAD)} << bits % 32, mostColours);
}

struct OwnedBitmap {
    explicit OwnedBitmap(UINT id) : handle(LoadBitmapA(nullptr, MAKEINTRESOURCEA(LOWORD(id)))) {}
    ~OwnedBitmap()
    {
        if (handle) DeleteObject(handle);
    }
    OwnedBitmap(const OwnedBitmap&) = delete;
    OwnedBitmap& operator=(const OwnedBitmap&) = delete;

    const HBITMAP handle;
};

} // namespace

void CDib::DrawBitmap(HDC dc, const CRect& source, CPoint at) const
{
    SetDIBitsToDevice(dc, at.x, at.y, static_cast<DWORD>(source.Width()), static_cast<DWORD>(source.Height()),
                      source.left, source.top, 0, static_cast<UINT>(GetBitmapHeight()), m_data, m_info,
                      DIB_RGB_COLORS);
}

void CDib::DrawBitmap(HDC dc, CPoint at) const
{
    DrawBitmap(dc, CRect(0, 0, GetBitmapWidth(), GetBitmapHeight()), at);
}

void CDib::StretchBitmap(HDC dc, const CRect& dest) const
{
    StretchDIBits(dc, dest.left, dest.top, dest.Width(), dest.Height(), 0, 0, GetBitmapWidth(),
                  GetBitmapHeight(), m_data, m_info, DIB_RGB_COLORS, SRCCOPY);
}

void CDib::StretchBitmap(HDC dc, const CRect& source, const CRect& dest) const
{
    StretchDIBits(dc, dest.left, dest.top, dest.Width(), dest.Height(), source.left, source.right,
                  source.Width(), source.Height(), m_data, m_info, DIB_RGB_COLORS, SRCCOPY);
}

void CDib::LoadBitmapResource(UINT id, CDC& dc)
{
    const OwnedBitmap bitmap(id);
    if (!bitmap.handle) ThrowChainedException(GetLastErrorException(), message::bitmapUnreadable);
    Empty();
    BITMAP facts{};
    GetObjectA(bitmap.handle, sizeof facts, &facts);
    const DWORD infoSize = infoSizeFor(facts.bmBitsPixel);
    Block info = zeroedBlock(infoSize);
    BITMAPINFOHEADER& header = info.as<BITMAPINFO>()->bmiHeader;
    header = {sizeof header,
              facts.bmWidth,
              facts.bmHeight,
              facts.bmPlanes,
              facts.bmBitsPixel,
              BI_RGB,
              0,
              0,
              0,
              0,
              0};
    corekit::DibLayout layout;
    if (!ReadDibLayout(header, layout)) ThrowChainedException(nullptr, message::bitmapUnreadable);
    auto dataSize = static_cast<std::uint64_t>(facts.bmWidthBytes) * static_cast<unsigned>(facts.bmHeight);
    if (facts.bmBitsPixel == 8) dataSize *= 3; // 8 bits are kept in the room of 24
    Block data = zeroedBlock(std::max<std::uint64_t>(dataSize, layout.dataSize()));
    GetDIBits(dc, bitmap.handle, 0, static_cast<UINT>(facts.bmHeight), data.get(), info.as<BITMAPINFO>(),
              DIB_RGB_COLORS);
    Take(info.release<BITMAPINFO>(), infoSize, data.release<BYTE>(), static_cast<DWORD>(dataSize));
}
