// Moves values between the controls of a dialog and the members of its object.
//
// CWnd::UpdateData makes a CDataExchange and calls DoDataExchange, which has a line for each control:
//
//     void CRateDialog::DoDataExchange(CDataExchange* exchange)
//     {
//         DDX_Text(exchange, 1015, m_lines);
//         DDV_MinMaxInt(exchange, m_lines, 1, 40);
//         DDX_Check(exchange, 1014, m_usesSeconds);
//     }
//
// A value that the user must mend is told in a message box, the focus goes to its control, and UpdateData
// gives 0.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CWnd;

class COREKIT_API CDataExchange {
public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate);

    BOOL m_bSaveAndValidate; // from the controls to the members
    CWnd* m_pDlgWnd;
    HWND m_hWndLastControl = nullptr;
    BOOL m_bEditLastControl = FALSE;

    // The control that follows; throws CNotSupportedException if the dialog has none of that id.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);
    // Goes to the control in hand and throws CUserException.
    [[noreturn]] void Fail();
};

// A field's text. A number that is none, or does not fit, fails.
COREKIT_API void DDX_Text(CDataExchange* exchange, int id, BYTE& value);
COREKIT_API void DDX_Text(CDataExchange* exchange, int id, short& value);
COREKIT_API void DDX_Text(CDataExchange* exchange, int id, int& value);
COREKIT_API void DDX_Text(CDataExchange* exchange, int id, UINT& value);
COREKIT_API void DDX_Text(CDataExchange* exchange, int id, double& value);
COREKIT_API void DDX_Text(CDataExchange* exchange, int id, CString& value);

COREKIT_API void DDX_Check(CDataExchange* exchange, int id, int& value); // 0, 1, or 2 for neither
// Which button of the group that begins at `id` is checked, from 0; -1: none.
COREKIT_API void DDX_Radio(CDataExchange* exchange, int id, int& value);
COREKIT_API void DDX_LBIndex(CDataExchange* exchange, int id, int& index); // -1: none
COREKIT_API void DDX_LBString(CDataExchange* exchange, int id, CString& value);
COREKIT_API void DDX_CBIndex(CDataExchange* exchange, int id, int& index);
COREKIT_API void DDX_CBString(CDataExchange* exchange, int id, CString& value);
// Binds an object to a control, once.
COREKIT_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);

// Behind the line of the value.
COREKIT_API void DDV_MinMaxInt(CDataExchange* exchange, int value, int minimum, int maximum);
COREKIT_API void DDV_MinMaxUInt(CDataExchange* exchange, UINT value, UINT minimum, UINT maximum);
COREKIT_API void DDV_MaxChars(CDataExchange* exchange, const CString& value, int characters);
