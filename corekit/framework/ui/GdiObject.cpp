#include "corekit/framework/ui/GdiObject.h"

#include "corekit/framework/ui/TemporaryObjects.h"
#include "corekit/platform/Dibs.h"
#include "corekit/platform/Resources.h"

#include <utility>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

namespace {

template <typename Object>
Object* temporary(HGDIOBJ handle)
{
    // Kept until the process ends: a handle may be asked for while other libraries go.
    static auto* const objects = new corekit::detail::TemporaryObjects<Object, HGDIOBJ, &Object::m_hObject>;
    return objects->of(handle);
}

} // namespace

CGdiObject::~CGdiObject() { DeleteObject(); }

BOOL CGdiObject::Attach(HGDIOBJ object)
{
    if (!object || m_hObject) return FALSE;
    m_hObject = object;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() { return std::exchange(m_hObject, nullptr); }

BOOL CGdiObject::DeleteObject()
{
    const HGDIOBJ object = Detach();
    return object ? ::DeleteObject(object) : FALSE;
}

CPen* CPen::FromHandle(HPEN pen) { return temporary<CPen>(pen); }
CBrush* CBrush::FromHandle(HBRUSH brush) { return temporary<CBrush>(brush); }
CFont* CFont::FromHandle(HFONT font) { return temporary<CFont>(font); }
CBitmap* CBitmap::FromHandle(HBITMAP bitmap) { return temporary<CBitmap>(bitmap); }
CRgn* CRgn::FromHandle(HRGN region) { return temporary<CRgn>(region); }

BOOL CBrush::CreatePatternBrush(CBitmap* pattern)
{
    return Attach(::CreatePatternBrush(pattern ? pattern->m_hObject : nullptr));
}

BOOL CBitmap::LoadBitmap(UINT id) { return LoadBitmap(MAKEINTRESOURCEA(LOWORD(id))); }
BOOL CBitmap::LoadBitmap(const char* name) { return Attach(::LoadBitmapA(nullptr, name)); }
