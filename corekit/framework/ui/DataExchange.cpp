#include "corekit/framework/ui/DataExchange.h"

#include "corekit/framework/Exception.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Buttons.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/Dialogs.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/resources/Messages.h"

#include <charconv>
#include <limits>
#include <string>
#include <string_view>

namespace {

CString textOf(HWND control)
{
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    return text;
}

[[noreturn]] void complain(CDataExchange& exchange, const char* text)
{
    AfxMessageBox(text, MB_ICONEXCLAMATION);
    exchange.Fail();
}

[[noreturn]] void complain(CDataExchange& exchange, UINT textId, const CString& first = {},
                           const CString& second = {})
{
    CString text;
    AfxFormatString2(text, textId, first, second);
    complain(exchange, text);
}

template <class Number>
CString asText(Number number)
{
    char buffer[32]{};
    std::to_chars(buffer, buffer + sizeof buffer - 1, number);
    return buffer;
}

// True if the whole text, blanks round it left out, is a number of that type.
template <class Number>
bool readNumber(const CString& text, Number& number)
{
    std::string_view digits = static_cast<const char*>(text);
    while (!digits.empty() && (digits.front() == ' ' || digits.front() == '\t')) digits.remove_prefix(1);
    while (!digits.empty() && (digits.back() == ' ' || digits.back() == '\t')) digits.remove_suffix(1);
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number);
    return !digits.empty() && read.ec == std::errc() && read.ptr == end;
}

template <class Number>
void exchangeNumber(CDataExchange& exchange, int id, Number& value, UINT complaint)
{
    const HWND control = exchange.PrepareEditCtrl(id);
    if (!exchange.m_bSaveAndValidate)
        SetWindowTextA(control, asText(value));
    else if (Number read{}; readNumber(textOf(control), read))
        value = read;
    else
        complain(exchange, complaint);
}

void exchangeIndex(CDataExchange& exchange, HWND control, UINT get, UINT set, int& index)
{
    if (exchange.m_bSaveAndValidate)
        index = static_cast<int>(SendMessageA(control, get, 0, 0));
    else
        SendMessageA(control, set, static_cast<WPARAM>(index), 0);
}

template <class Number>
void checkRange(CDataExchange& exchange, Number value, Number minimum, Number maximum)
{
    if (!exchange.m_bSaveAndValidate || (value >= minimum && value <= maximum)) return;
    complain(exchange, message::enterIntegerBetween, asText(minimum), asText(maximum));
}

} // namespace

CDataExchange::CDataExchange(CWnd* dialog, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog)
{
}

HWND CDataExchange::PrepareCtrl(int id)
{
    const HWND control = ::GetDlgItem(m_pDlgWnd->GetSafeHwnd(), id);
    if (!control) AfxThrowNotSupportedException();
    m_hWndLastControl = control;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int id)
{
    const HWND control = PrepareCtrl(id);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && IsWindow(m_hWndLastControl)) {
        SetFocus(m_hWndLastControl);
        if (m_bEditLastControl) SendMessageA(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    CDataExchange exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
        return TRUE;
    } catch (CUserException* e) { // told already
        e->Delete();
    } catch (CException* e) {
        e->ReportError();
        e->Delete();
    }
    return FALSE;
}

void DDX_Text(CDataExchange* exchange, int id, BYTE& value)
{
    exchangeNumber(*exchange, id, value, message::enterByte);
}
void DDX_Text(CDataExchange* exchange, int id, short& value)
{
    exchangeNumber(*exchange, id, value, message::enterInteger);
}
void DDX_Text(CDataExchange* exchange, int id, int& value)
{
    exchangeNumber(*exchange, id, value, message::enterInteger);
}
void DDX_Text(CDataExchange* exchange, int id, UINT& value)
{
    exchangeNumber(*exchange, id, value, message::enterPositiveInteger);
}
void DDX_Text(CDataExchange* exchange, int id, double& value)
{
    exchangeNumber(*exchange, id, value, message::enterNumber);
}
void DDX_Text(CDataExchange* exchange, int id, CString& value)
{
    const HWND control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = textOf(control);
    else if (textOf(control) != value)
        SetWindowTextA(control, value);
}

void DDX_Check(CDataExchange* exchange, int id, int& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(SendMessageA(control, BM_GETCHECK, 0, 0));
    else
        SendMessageA(control, BM_SETCHECK, value < 0 || value > 2 ? 0 : static_cast<WPARAM>(value), 0);
}

void DDX_Radio(CDataExchange* exchange, int id, int& value)
{
    HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) value = -1;
    int index = 0;
    do {
        if (SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) {
            if (!exchange->m_bSaveAndValidate)
                SendMessageA(control, BM_SETCHECK, index == value, 0);
            else if (SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED)
                value = index;
            ++index;
        }
        control = GetWindow(control, GW_HWNDNEXT);
    } while (control && !(GetWindowLongPtrA(control, GWL_STYLE) & static_cast<LONG_PTR>(WS_GROUP)));
}

void DDX_LBIndex(CDataExchange* exchange, int id, int& index)
{
    exchangeIndex(*exchange, exchange->PrepareCtrl(id), LB_GETCURSEL, LB_SETCURSEL, index);
}
void DDX_CBIndex(CDataExchange* exchange, int id, int& index)
{
    exchangeIndex(*exchange, exchange->PrepareCtrl(id), CB_GETCURSEL, CB_SETCURSEL, index);
}

void DDX_LBString(CDataExchange* exchange, int id, CString& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        const LRESULT row = SendMessageA(control, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(static_cast<const char*>(value)));
        SendMessageA(control, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
        return;
    }
    value.Empty();
    const LRESULT row = SendMessageA(control, LB_GETCURSEL, 0, 0);
    const LRESULT length = row < 0 ? -1 : SendMessageA(control, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
    if (length < 0) return;
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(control, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
    value = text.c_str();
}

void DDX_CBString(CDataExchange* exchange, int id, CString& value)
{
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = textOf(control);
        return;
    }
    const LRESULT row = SendMessageA(control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(static_cast<const char*>(value)));
    if (row >= 0)
        SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    else
        SetWindowTextA(control, value);
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    if (!control.m_hWnd && !exchange->m_bSaveAndValidate) control.SubclassWindow(exchange->PrepareCtrl(id));
}

void DDV_MinMaxInt(CDataExchange* exchange, int value, int minimum, int maximum)
{
    checkRange(*exchange, value, minimum, maximum);
}
void DDV_MinMaxUInt(CDataExchange* exchange, UINT value, UINT minimum, UINT maximum)
{
    checkRange(*exchange, value, minimum, maximum);
}

void DDV_MaxChars(CDataExchange* exchange, const CString& value, int characters)
{
    if (exchange->m_bSaveAndValidate) {
        if (value.GetLength() > characters)
            complain(*exchange, message::enterFewerCharacters, asText(characters));
    } else if (exchange->m_hWndLastControl && exchange->m_bEditLastControl) {
        SendMessageA(exchange->m_hWndLastControl, EM_LIMITTEXT, static_cast<WPARAM>(characters), 0);
    }
}
