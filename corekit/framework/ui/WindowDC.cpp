#include "corekit/framework/ui/WindowDC.h"

#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/framework/ui/Wnd.h"

using corekit::detail::safeHandle;

IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

CPaintDC::CPaintDC(CWnd* window) : m_hWnd(safeHandle(window)) { Attach(::BeginPaint(m_hWnd, &m_ps)); }

CPaintDC::~CPaintDC()
{
    Detach();
    ::EndPaint(m_hWnd, &m_ps);
}

CClientDC::CClientDC(CWnd* window) : m_hWnd(safeHandle(window)) { Attach(::GetDC(m_hWnd)); }

CClientDC::~CClientDC() { ::ReleaseDC(m_hWnd, Detach()); }

CWindowDC::CWindowDC(CWnd* window) : m_hWnd(safeHandle(window)) { Attach(::GetWindowDC(m_hWnd)); }

CWindowDC::~CWindowDC() { ::ReleaseDC(m_hWnd, Detach()); }
