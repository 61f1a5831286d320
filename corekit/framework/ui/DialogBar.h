// A strip of controls from a template, at an edge of a frame.
//
// What its controls tell goes to its own map first and then to its owner.
#pragma once

#include "corekit/framework/ui/Wnd.h"

class COREKIT_API CDialogBar : public CWnd {
    DECLARE_DYNAMIC(CDialogBar)
public:
    CDialogBar() = default;
    ~CDialogBar() override;

    // A child of `parent` with the size of the template. 0 if there is no such template. The style may have
    // WS_VISIBLE; what else a bar needs comes by itself.
    using CWnd::Create;
    BOOL Create(CWnd* parent, UINT templateId, DWORD style, UINT id);
    BOOL Create(CWnd* parent, const char* templateName, DWORD style, UINT id);

    CSize m_sizeDefault; // that of the template, in pixels

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};
