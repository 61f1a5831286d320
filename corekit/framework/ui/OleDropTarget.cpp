#include "corekit/framework/ui/OleDropTarget.h"

#include "corekit/framework/ui/Wnd.h"

using corekit::detail::DraggedData;

IMPLEMENT_DYNAMIC(COleDropTarget, CCmdTarget)

COleDropTarget::~COleDropTarget() { COleDropTarget::Revoke(); }

BOOL COleDropTarget::Register(CWnd* window)
{
    if (m_hWnd || !window || !corekit::detail::setDropTarget(window->GetSafeHwnd(), this)) return FALSE;
    m_hWnd = window->m_hWnd;
    return TRUE;
}

void COleDropTarget::Revoke()
{
    if (IsWindow(m_hWnd)) corekit::detail::setDropTarget(m_hWnd, nullptr);
    m_hWnd = nullptr;
}

DWORD COleDropTarget::enter(HWND window, const DraggedData& data, DWORD keys, POINT point)
{
    COleDataObject object(data);
    return OnDragEnter(CWnd::FromHandle(window), &object, keys, point);
}

DWORD COleDropTarget::over(HWND window, const DraggedData& data, DWORD keys, POINT point)
{
    COleDataObject object(data);
    return OnDragOver(CWnd::FromHandle(window), &object, keys, point);
}

void COleDropTarget::leave(HWND window) { OnDragLeave(CWnd::FromHandle(window)); }

DWORD COleDropTarget::drop(HWND window, const DraggedData& data, DWORD effect, POINT point)
{
    COleDataObject object(data);
    return OnDrop(CWnd::FromHandle(window), &object, effect, point) ? effect : DROPEFFECT_NONE;
}
