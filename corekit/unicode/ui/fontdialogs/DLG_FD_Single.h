// Choosing one font: its face and size, with a preview.
#pragma once

#include "corekit/framework/ui/Dialog.h"
#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/FontDescriptor.h"

class CScrollBar;

class COREKIT_API DLG_FD_Single : public CDialog {
    DECLARE_DYNAMIC(DLG_FD_Single)
public:
    static constexpr int wantsMultiple = 1000; // DoModal's result when the user wants several fonts

    // The descriptor is the caller's, and is changed by OK and by the wish for several.
    DLG_FD_Single(CWnd* parent, CFontDescriptor& font, int readOnly);
    ~DLG_FD_Single() override;

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnMultiple();
    void OnFace() { ShowPreview(); }
    void OnSizePicked();
    void OnSizeEdited();
    void OnSizeDropDown();
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    DECLARE_MESSAGE_MAP()

private:
    void StoreChoice();
    CString ChosenFace() const;
    void ShowPreview();

    CFontDescriptor* m_font;
    int m_readOnly;
    HFONT m_preview = nullptr;
};
