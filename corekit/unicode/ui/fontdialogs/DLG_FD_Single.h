// Choosing one font: its face and size, with a preview that follows every change. User-interface thread.
#pragma once

#include "corekit/framework/ui/Dialog.h"
#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/FontDescriptor.h"

class CScrollBar;

class COREKIT_API DLG_FD_Single : public CDialog {
    DECLARE_DYNAMIC(DLG_FD_Single)
public:
    static constexpr int wantsMultiple = 1000; // DoModal's result when the user wants several fonts

    // The descriptor is the caller's, and is changed by OK and by the wish for several. With `readOnly` OK
    // cannot be pressed. A face that the machine does not have stays chosen until another one is.
    DLG_FD_Single(CWnd* parent, CFontDescriptor& font, int readOnly);
    // The preview's font goes with the window.
    ~DLG_FD_Single() override;

protected:
    BOOL OnInitDialog() override;    // lists all faces of the machine
    void OnOK() override;            // stores the choice
    void OnMultiple();               // ends with wantsMultiple
    void OnFace() { ShowPreview(); } // another face is selected
    // The field of the size: a row picked, digits typed, the list opened, an arrow pressed.
    void OnSizePicked();
    void OnSizeEdited();
    void OnSizeDropDown();
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    DECLARE_MESSAGE_MAP()

private:
    void StoreChoice();         // one face, or none, and the size
    CString ChosenFace() const; // that of the descriptor without a selection
    void ShowPreview();         // in the face and size as they are now

    CFontDescriptor* m_font;   // the caller's
    int m_readOnly;            // nonzero: look only
    HFONT m_preview = nullptr; // owned
};
