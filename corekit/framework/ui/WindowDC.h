// The contexts of a window as objects: for its painting, its client area, the whole of it.
//
// Each gives its context back when it goes.
#pragma once

#include "corekit/framework/ui/DC.h"
#include "corekit/platform/Painting.h"

class CWnd;

// For WM_PAINT only.
class COREKIT_API CPaintDC : public CDC {
    DECLARE_DYNAMIC(CPaintDC)

    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps{};

protected:
    HWND m_hWnd;
};

// A null window gives a context for measuring.
class COREKIT_API CClientDC : public CDC {
    DECLARE_DYNAMIC(CClientDC)

    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

class COREKIT_API CWindowDC : public CDC {
    DECLARE_DYNAMIC(CWindowDC)

    explicit CWindowDC(CWnd* window);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};
