// Choosing one more font.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/ui/Dialog.h"

class COREKIT_API DLG_FD_AddFont : public CDialog {
    DECLARE_DYNAMIC(DLG_FD_AddFont)
public:
    // Faces in `chosen` are not offered; the list outlives the dialog.
    DLG_FD_AddFont(CWnd* parent, const CStringArray& chosen);

    const CString& GetFace() const { return m_face; } // after IDOK

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnFace();
    DECLARE_MESSAGE_MAP()

private:
    const CStringArray* m_chosen;
    CString m_face;
};
