// A strip of controls from a template, at an edge of a frame.
//
// It is docked and floated as any bar; its buttons are enabled by the update handlers of their commands.
//
//     m_bar.Create(&frame, 130, WS_CHILD | WS_VISIBLE | CBRS_TOP, idSearchBar);
#pragma once

#include "corekit/framework/ui/ControlBar.h"

class COREKIT_API CDialogBar : public CControlBar {
    DECLARE_DYNAMIC(CDialogBar)
public:
    CDialogBar() = default;
    // Destroys the window.
    ~CDialogBar() override;

    // A child of `parent` with the size of the template. 0 if there is no such template. The style may have
    // WS_VISIBLE and a side (CBRS_); what else a bar needs comes by itself.
    using CWnd::Create;
    // `id` is the bar's within the frame; the owner that its controls' messages go to is `parent`.
    BOOL Create(CWnd* parent, UINT templateId, DWORD style, UINT id);
    BOOL Create(CWnd* parent, const char* templateName, DWORD style, UINT id);

    CSize m_sizeDefault; // as it was made from the template, in pixels; what a layout asks for

    // Offers keys to the strip as to a dialog: Tab and arrows move among its controls.
    BOOL PreTranslateMessage(MSG* message) override;
    // m_sizeDefault, or longestBar along the edge.
    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    // Asks for each control, by its id.
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;
};
