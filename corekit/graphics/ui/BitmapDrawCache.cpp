#include "corekit/graphics/ui/BitmapDrawCache.h"

#include "corekit/framework/Exception.h"

IMPLEMENT_DYNAMIC(CBitmapDrawCache, CObject)

namespace {

constexpr UINT bucketCount = 17;
constexpr int blockSize = 10;

CBitmapDrawCache theCache;

} // namespace

CBitmapDrawCache::CBitmapDrawCache() : m_bitmaps(blockSize)
{
    m_bitmaps.InitHashTable(bucketCount);
    m_dc.CreateCompatibleDC(nullptr);
}

CBitmapDrawCache::~CBitmapDrawCache()
{
    for (POSITION at = m_bitmaps.GetStartPosition(); at;) {
        UINT id = 0;
        CDib* bitmap = nullptr;
        m_bitmaps.GetNextAssoc(at, id, bitmap);
        delete bitmap;
    }
}

int CBitmapDrawCache::IsBitmapCached(UINT id)
{
    CDib* bitmap = nullptr;
    return m_bitmaps.Lookup(id, bitmap) ? 1 : 0;
}

int CBitmapDrawCache::CacheBitmap(UINT id)
{
    auto bitmap = std::make_unique<CDib>();
    try {
        bitmap->LoadBitmapResource(id, m_dc);
    } catch (CException* e) {
        e->Delete();
        return 0;
    }
    if (CDib* const before = GetBitmap(id, 0)) m_replaced.emplace_back(before);
    m_bitmaps.SetAt(id, bitmap.release());
    return 1;
}

CDib* CBitmapDrawCache::GetBitmap(UINT id, int load)
{
    CDib* bitmap = nullptr;
    if (m_bitmaps.Lookup(id, bitmap) || !load || !CacheBitmap(id)) return bitmap;
    m_bitmaps.Lookup(id, bitmap);
    return bitmap;
}

CSize CBitmapDrawCache::GetBitmapSize(UINT id, int load)
{
    const CDib* const bitmap = GetBitmap(id, load);
    return bitmap ? CSize(bitmap->GetSize()) : CSize();
}

void CBitmapDrawCache::DrawBitmap(CDC& dc, UINT id, CPoint at)
{
    if (const CDib* const bitmap = GetBitmap(id, 1)) bitmap->DrawBitmap(dc, at);
}

void CBitmapDrawCache::DrawBitmapCentreVertically(CDC& dc, UINT id, const CRect& rect)
{
    if (const CDib* const bitmap = GetBitmap(id, 1)) bitmap->StretchBitmap(dc, rect);
}

CBitmapDrawCache& GetBitmapDrawCache() { return theCache; }
