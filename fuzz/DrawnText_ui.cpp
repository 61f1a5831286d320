// Any text measured and drawn in all the ways there are, on a small picture.
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Toolkit.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

HDC Picture()
{
    StartToolkit(ToolkitDisplay::offscreen);
    const HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, CreateCompatibleBitmap(dc, 200, 60));
    return dc;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const HDC dc = Picture();
    if (size < 4) return 0;
    constexpr UINT options[] = {0, ETO_RTLREADING, ETO_IGNORELANGUAGE, ETO_CLIPPED | ETO_OPAQUE};
    std::vector<WCHAR> text((size - 4) / sizeof(WCHAR));
    if (!text.empty()) std::memcpy(text.data(), data + 4, text.size() * sizeof(WCHAR));
    const int count = static_cast<int>(text.size());
    const HFONT font =
        CreateFontA(1 + data[0] % 64, data[1] & 7, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Noto Sans");
    const HGDIOBJ before = SelectObject(dc, font);
    RECT room{0, 0, data[1] - 20, 60};
    SIZE extent{};
    const UINT option = options[data[2] & 3];
    if (GetTextExtentPoint32W(dc, text.data(), count, &extent, option) && extent.cy < 0) std::abort();
    ExtTextOutW(dc, 0, 0, option, &room, text.data(), static_cast<UINT>(count));
    const UINT format = UINT{data[2]} | UINT{data[3]} << 12;
    DrawTextW(dc, text.data(), count, &room, format & ~DT_CALCRECT);
    DrawTextW(dc, text.data(), count, &room, format | DT_CALCRECT);
    SelectObject(dc, before);
    DeleteObject(font);
    return 0;
}
