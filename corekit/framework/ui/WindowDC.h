// The contexts of a window as objects: for its painting, its client area, the whole of it.
//
// Each gives its context back when it goes.
//
// User-interface thread. Objects live on the stack and never longer than a message; a window that goes
// meanwhile leaves a context that draws into nothing.
//
//     void CPane::OnPaint()
//     {
//         CPaintDC dc(this);
//         dc.TextOut(10, 10, m_text);
//     }
#pragma once

#include "corekit/framework/ui/DC.h"
#include "corekit/platform/Painting.h"

class CWnd;

// For WM_PAINT only. Takes what is invalid out of the window's list; m_ps.rcPaint bounds it in client
// coordinates.
class COREKIT_API CPaintDC : public CDC {
    DECLARE_DYNAMIC(CPaintDC)

    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps{}; // good until the object goes

protected:
    HWND m_hWnd; // null: a context for measuring
};

// A null window gives a context for measuring. The client area at any time; shows when the object goes.
class COREKIT_API CClientDC : public CDC {
    DECLARE_DYNAMIC(CClientDC)

    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

// With borders and scroll bars; the frame of a top window is the desktop's.
class COREKIT_API CWindowDC : public CDC {
    DECLARE_DYNAMIC(CWindowDC)

    explicit CWindowDC(CWnd* window);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};
