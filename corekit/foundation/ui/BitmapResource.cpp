#include "corekit/foundation/ui/BitmapResource.h"

#include "corekit/framework/Module.h"
#include "corekit/framework/ResourceTypes.h"

HBITMAP AfxLoadBitmap(const char* name)
{
    HBITMAP bitmap = nullptr;
    AfxUseResource(name, MAKEINTRESOURCEA(RT_BITMAP),
                   [&bitmap](std::span<const std::byte> dib) { bitmap = CreateBitmapFromDib(dib); });
    return bitmap;
}

HBITMAP AfxLoadBitmap(UINT id) { return AfxLoadBitmap(MAKEINTRESOURCEA(LOWORD(id))); }
