// A strip of controls from a template, at an edge of a frame.
//
// It is docked and floated as any bar; its buttons are enabled by the update handlers of their commands.
#pragma once

#include "corekit/framework/ui/ControlBar.h"

class COREKIT_API CDialogBar : public CControlBar {
    DECLARE_DYNAMIC(CDialogBar)
public:
    CDialogBar() = default;
    ~CDialogBar() override;

    // A child of `parent` with the size of the template. 0 if there is no such template. The style may have
    // WS_VISIBLE and a side (CBRS_); what else a bar needs comes by itself.
    using CWnd::Create;
    BOOL Create(CWnd* parent, UINT templateId, DWORD style, UINT id);
    BOOL Create(CWnd* parent, const char* templateName, DWORD style, UINT id);

    CSize m_sizeDefault; // that of the template, in pixels

    BOOL PreTranslateMessage(MSG* message) override;
    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;
};
