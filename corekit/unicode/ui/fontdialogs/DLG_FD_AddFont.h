// Choosing one more font: a list of the machine's faces, of which a double click or OK takes one.
// User-interface thread.
//
//     DLG_FD_AddFont dialog(this, chosen);
//     if (dialog.DoModal() == IDOK) chosen.Add(dialog.GetFace());
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/ui/Dialog.h"

class COREKIT_API DLG_FD_AddFont : public CDialog {
    DECLARE_DYNAMIC(DLG_FD_AddFont)
public:
    // Faces in `chosen` are not offered, whatever their letter case; the list outlives the dialog.
    DLG_FD_AddFont(CWnd* parent, const CStringArray& chosen);

    // Empty before IDOK.
    const CString& GetFace() const { return m_face; } // after IDOK

protected:
    BOOL OnInitDialog() override;
    void OnOK() override; // nothing without a selection
    void OnFace();        // OK can be pressed with one
    DECLARE_MESSAGE_MAP()

private:
    const CStringArray* m_chosen; // the caller's
    CString m_face;
};
