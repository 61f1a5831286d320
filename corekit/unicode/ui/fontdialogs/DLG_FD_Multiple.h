// Choosing several fonts of one size, in the order in which they are asked for a character.
#pragma once

#include "corekit/framework/ui/Dialog.h"
#include "corekit/unicode/ui/FontDescriptor.h"

class CScrollBar;

class COREKIT_API DLG_FD_Multiple : public CDialog {
    DECLARE_DYNAMIC(DLG_FD_Multiple)
public:
    // The descriptor is the caller's, and is changed by OK.
    DLG_FD_Multiple(CWnd* parent, CFontDescriptor& font, int readOnly);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnAdd();
    void OnRemove();
    void UpdateButtons();
    void OnSizePicked();
    void OnSizeEdited();
    void OnSizeDropDown();
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    DECLARE_MESSAGE_MAP()

private:
    CFontDescriptor* m_font;
    int m_readOnly;
};
