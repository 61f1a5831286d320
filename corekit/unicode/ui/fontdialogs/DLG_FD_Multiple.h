// Choosing several fonts of one size, in the order in which they are asked for a character: from one to
// sixteen faces. User-interface thread.
#pragma once

#include "corekit/framework/ui/Dialog.h"
#include "corekit/unicode/ui/FontDescriptor.h"

class CScrollBar;

class COREKIT_API DLG_FD_Multiple : public CDialog {
    DECLARE_DYNAMIC(DLG_FD_Multiple)
public:
    // The descriptor is the caller's, and is changed by OK. With `readOnly` the user only looks, and
    // nothing changes. The faces are offered in the order of the descriptor, known to this machine or not.
    DLG_FD_Multiple(CWnd* parent, CFontDescriptor& font, int readOnly);

protected:
    BOOL OnInitDialog() override; // shows faces and size
    void OnOK() override;         // stores them
    void OnAdd();                 // asks for a face, which becomes the last
    void OnRemove();              // the selected one, but never the only one
    void UpdateButtons();         // what can be pressed
    // The field of the size: a row picked, digits typed, the list opened, an arrow pressed.
    void OnSizePicked();
    void OnSizeEdited();
    void OnSizeDropDown();
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    DECLARE_MESSAGE_MAP()

private:
    CFontDescriptor* m_font; // the caller's
    int m_readOnly;          // nonzero: look only
};
