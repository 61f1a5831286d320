// CBitmapDrawCache: bitmaps from resources, kept in memory by their number for controls that draw them often.
//
// The cache owns its bitmaps for the life of the process. User-interface thread.
#pragma once

#include "corekit/framework/Map.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/graphics/Dib.h"

#include <memory>
#include <vector>

class COREKIT_API CBitmapDrawCache : public CObject {
    DECLARE_DYNAMIC(CBitmapDrawCache)

    // An empty cache. Programs use the one that GetBitmapDrawCache gives.
    CBitmapDrawCache();

    ~CBitmapDrawCache() override;

    // Not 0 if the bitmap of that resource number is kept. Loads nothing.
    int IsBitmapCached(UINT id);
    // Loads the bitmap and keeps it; 0 if it cannot be loaded. One that is kept already goes out of the cache
    // and stays in memory, as somebody may hold it.
    int CacheBitmap(UINT id);
    // The bitmap, still owned by the cache. Null for a bitmap that is not kept and, where `load` is not 0,
    // cannot be loaded.
    CDib* GetBitmap(UINT id, int load);
    // Width and height in pixels; (0, 0) where GetBitmap gives null.
    CSize GetBitmapSize(UINT id, int load);
    // Draws the bitmap unstretched with its upper left corner at a point, loading it at first. One that
    // cannot be loaded draws nothing.
    void DrawBitmap(CDC& dc, UINT id, CPoint at);
    // Stretches the bitmap over the whole rectangle.
    void DrawBitmapCentreVertically(CDC& dc, UINT id, const CRect& rect);

private:
    CMap<UINT, UINT, CDib*, CDib*> m_bitmaps;
    std::vector<std::unique_ptr<CDib>> m_replaced; // out of the cache, still in somebody's hands
    CDC m_dc;                                      // in which resources are converted
};

// The one cache of the process.
COREKIT_API CBitmapDrawCache& GetBitmapDrawCache();
