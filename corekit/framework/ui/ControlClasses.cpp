// What the classes of controls do beyond sending a message.
#include "corekit/framework/ui/Button.h"
#include "corekit/framework/ui/CheckListBox.h"
#include "corekit/framework/ui/ComboBox.h"
#include "corekit/framework/ui/Edit.h"
#include "corekit/framework/ui/HeaderCtrl.h"
#include "corekit/framework/ui/HotKeyCtrl.h"
#include "corekit/framework/ui/ImageList.h"
#include "corekit/framework/ui/ListCtrl.h"
#include "corekit/framework/ui/ProgressCtrl.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/framework/ui/ScrollBar.h"
#include "corekit/framework/ui/SpinButtonCtrl.h"
#include "corekit/framework/ui/Static.h"
#include "corekit/framework/ui/StatusBarCtrl.h"
#include "corekit/framework/ui/TabCtrl.h"
#include "corekit/framework/ui/ToolTipCtrl.h"
#include "corekit/framework/ui/TreeCtrl.h"

#include <algorithm>
#include <cstring>
#include <utility>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CCheckListBox, CListBox)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)
IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)
IMPLEMENT_DYNAMIC(CHotKeyCtrl, CWnd)
IMPLEMENT_DYNAMIC(CSpinButtonCtrl, CWnd)
IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)
IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)
IMPLEMENT_DYNAMIC(CImageList, CObject)

namespace {

constexpr int textRoom = 1024;

// The owner's part of drawing rows, sent back to the control. False for any other message.
template <typename Control>
bool drawnByOwner(Control& control, UINT message, LPARAM what, LRESULT* result)
{
    LRESULT answer = TRUE;
    switch (message) {
    case WM_DRAWITEM:
        control.DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(what));
        break;
    case WM_MEASUREITEM:
        control.MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(what));
        break;
    case WM_COMPAREITEM:
        answer = control.CompareItem(reinterpret_cast<COMPAREITEMSTRUCT*>(what));
        break;
    case WM_DELETEITEM:
        control.DeleteItem(reinterpret_cast<DELETEITEMSTRUCT*>(what));
        break;
    default:
        return false;
    }
    if (result) *result = answer;
    return true;
}

// Text by a message that copies it into a buffer of sufficient size.
void copyRowText(const CWnd& control, int length, UINT message, int index, CString& text)
{
    text.Empty();
    if (length <= 0) return;
    control.SendMessage(message, static_cast<WPARAM>(index),
                        reinterpret_cast<LPARAM>(text.GetBuffer(length)));
    text.ReleaseBuffer(length);
}

int sendText(const CWnd& control, UINT message, int index, const WCHAR* text)
{
    return static_cast<int>(
        ::SendMessageW(control.m_hWnd, message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}

void copyRowText(const CWnd& control, UINT lengthMessage, UINT message, int index, std::u16string& text)
{
    const LRESULT length = ::SendMessageW(control.m_hWnd, lengthMessage, static_cast<WPARAM>(index), 0);
    text.assign(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, u'\0');
    if (length > 0)
        ::SendMessageW(control.m_hWnd, message, static_cast<WPARAM>(index),
                       reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
}

} // namespace

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    return TRUE;
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    return drawnByOwner(*this, message, lParam, result) ||
           CWnd::OnChildNotify(message, wParam, lParam, result);
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    return drawnByOwner(*this, message, lParam, result) ||
           CWnd::OnChildNotify(message, wParam, lParam, result);
}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message == WM_DRAWITEM)
        DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    else if (message == WM_MEASUREITEM)
        MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
    else
        return CWnd::OnChildNotify(message, wParam, lParam, result);
    return TRUE;
}

BOOL CStatusBarCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    return TRUE;
}

int CEdit::GetLine(int line, char* buffer, int size) const
{
    if (!buffer || size < static_cast<int>(sizeof(WORD))) return 0;
    const WORD room = static_cast<WORD>(std::min(size, 0xFFFF));
    std::memcpy(buffer, &room, sizeof room);
    return static_cast<int>(
        SendMessage(EM_GETLINE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(buffer)));
}

void CListBox::GetText(int index, CString& text) const
{
    copyRowText(*this, GetTextLen(index), LB_GETTEXT, index, text);
}

void CListBox::GetText(int index, std::u16string& text) const
{
    copyRowText(*this, LB_GETTEXTLEN, LB_GETTEXT, index, text);
}

int CListBox::AddString(const WCHAR* text) { return sendText(*this, LB_ADDSTRING, 0, text); }
int CListBox::InsertString(int index, const WCHAR* text)
{
    return sendText(*this, LB_INSERTSTRING, index, text);
}

UINT CListBox::ItemFromPoint(POINT point, BOOL& outside) const
{
    const auto answer = static_cast<DWORD>(
        SendMessage(LB_ITEMFROMPOINT, 0,
                    static_cast<LPARAM>(MAKELONG(static_cast<WORD>(point.x), static_cast<WORD>(point.y)))));
    outside = HIWORD(answer) != 0;
    return LOWORD(answer);
}

void CComboBox::GetLBText(int index, CString& text) const
{
    copyRowText(*this, GetLBTextLen(index), CB_GETLBTEXT, index, text);
}

void CComboBox::GetLBText(int index, std::u16string& text) const
{
    copyRowText(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, index, text);
}

int CComboBox::AddString(const WCHAR* text) { return sendText(*this, CB_ADDSTRING, 0, text); }
int CComboBox::InsertString(int index, const WCHAR* text)
{
    return sendText(*this, CB_INSERTSTRING, index, text);
}

HTREEITEM CTreeCtrl::InsertItem(const char* text, HTREEITEM parent, HTREEITEM after)
{
    TVINSERTSTRUCTA what{parent, after, {}};
    what.item.mask = TVIF_TEXT;
    what.item.pszText = const_cast<char*>(text);
    return InsertItem(&what);
}

HTREEITEM CTreeCtrl::InsertItem(const char* text, int image, int selectedImage, HTREEITEM parent,
                                HTREEITEM after)
{
    TVINSERTSTRUCTA what{parent, after, {}};
    what.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    what.item.pszText = const_cast<char*>(text);
    what.item.iImage = image;
    what.item.iSelectedImage = selectedImage;
    return InsertItem(&what);
}

CString CTreeCtrl::GetItemText(HTREEITEM item) const
{
    char room[textRoom] = {};
    TVITEMA asked{};
    asked.mask = TVIF_TEXT;
    asked.hItem = item;
    asked.pszText = room;
    asked.cchTextMax = textRoom;
    return GetItem(&asked) ? room : "";
}

BOOL CTreeCtrl::SetItemText(HTREEITEM item, const char* text)
{
    TVITEMA what{};
    what.mask = TVIF_TEXT;
    what.hItem = item;
    what.pszText = const_cast<char*>(text);
    return SetItem(&what);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const
{
    TVITEMA asked{};
    asked.mask = TVIF_PARAM;
    asked.hItem = item;
    return GetItem(&asked) ? static_cast<DWORD_PTR>(asked.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM item, DWORD_PTR data)
{
    TVITEMA what{};
    what.mask = TVIF_PARAM;
    what.hItem = item;
    what.lParam = static_cast<LPARAM>(data);
    return SetItem(&what);
}

BOOL CTreeCtrl::SetItemState(HTREEITEM item, UINT state, UINT mask)
{
    TVITEMA what{};
    what.mask = TVIF_STATE;
    what.hItem = item;
    what.state = state;
    what.stateMask = mask;
    return SetItem(&what);
}

HTREEITEM CTreeCtrl::HitTest(POINT point, UINT* flags) const
{
    TVHITTESTINFO info{point, 0, nullptr};
    const HTREEITEM item = HitTest(&info);
    if (flags) *flags = info.flags;
    return item;
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM item, RECT* rect, BOOL onlyText) const
{
    std::memcpy(static_cast<void*>(rect), &item, sizeof item);
    return SendMessage(TVM_GETITEMRECT, static_cast<WPARAM>(onlyText), reinterpret_cast<LPARAM>(rect)) != 0;
}

int CListCtrl::InsertColumn(int column, const char* title, int format, int width, int subItem)
{
    LVCOLUMNA what{};
    what.mask = LVCF_TEXT | LVCF_FMT | (width >= 0 ? LVCF_WIDTH : 0) | (subItem >= 0 ? LVCF_SUBITEM : 0);
    what.pszText = const_cast<char*>(title);
    what.fmt = format;
    what.cx = width;
    what.iSubItem = subItem;
    return InsertColumn(column, &what);
}

int CListCtrl::InsertItem(int row, const char* text)
{
    LVITEMA what{};
    what.mask = LVIF_TEXT;
    what.iItem = row;
    what.pszText = const_cast<char*>(text);
    return InsertItem(&what);
}

int CListCtrl::InsertItem(int row, const char* text, int image)
{
    LVITEMA what{};
    what.mask = LVIF_TEXT | LVIF_IMAGE;
    what.iItem = row;
    what.pszText = const_cast<char*>(text);
    what.iImage = image;
    return InsertItem(&what);
}

CString CListCtrl::GetItemText(int row, int column) const
{
    char room[textRoom] = {};
    LVITEMA asked{};
    asked.iSubItem = column;
    asked.pszText = room;
    asked.cchTextMax = textRoom;
    SendMessage(LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&asked));
    return room;
}

BOOL CListCtrl::SetItemText(int row, int column, const char* text)
{
    LVITEMA what{};
    what.iSubItem = column;
    what.pszText = const_cast<char*>(text);
    return SendMessage(LVM_SETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&what)) != 0;
}

DWORD_PTR CListCtrl::GetItemData(int row) const
{
    LVITEMA asked{};
    asked.mask = LVIF_PARAM;
    asked.iItem = row;
    return GetItem(&asked) ? static_cast<DWORD_PTR>(asked.lParam) : 0;
}

BOOL CListCtrl::SetItemData(int row, DWORD_PTR data)
{
    LVITEMA what{};
    what.mask = LVIF_PARAM;
    what.iItem = row;
    what.lParam = static_cast<LPARAM>(data);
    return SetItem(&what);
}

BOOL CListCtrl::SetItemState(int row, UINT state, UINT mask)
{
    LVITEMA what{};
    what.state = state;
    what.stateMask = mask;
    return SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&what)) != 0;
}

// A position is the row and 1, so that null stands for none.
POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    return reinterpret_cast<POSITION>(
        static_cast<LONG_PTR>(GetNextItem(-1, static_cast<int>(LVNI_SELECTED)) + 1));
}

int CListCtrl::GetNextSelectedItem(POSITION& position) const
{
    const int row = static_cast<int>(reinterpret_cast<LONG_PTR>(position)) - 1;
    const int next = row < 0 ? -1 : GetNextItem(row, static_cast<int>(LVNI_SELECTED));
    position = reinterpret_cast<POSITION>(static_cast<LONG_PTR>(next + 1));
    return row;
}

int CTabCtrl::InsertItem(int index, const char* text, int image)
{
    TCITEMA what{};
    what.mask = TCIF_TEXT | TCIF_IMAGE;
    what.pszText = const_cast<char*>(text);
    what.iImage = image;
    return InsertItem(index, &what);
}

namespace {

TOOLINFOA toolOf(CWnd* window, UINT_PTR id)
{
    const HWND handle = corekit::detail::safeHandle(window);
    TOOLINFOA info{};
    info.cbSize = sizeof info;
    if (id) {
        info.hwnd = handle;
        info.uId = id;
        return info;
    }
    info.hwnd = GetParent(handle) ? GetParent(handle) : handle;
    info.uFlags = TTF_IDISHWND;
    info.uId = reinterpret_cast<UINT_PTR>(handle);
    return info;
}

} // namespace

BOOL CToolTipCtrl::AddTool(CWnd* window, const char* text, const RECT* rect, UINT_PTR id)
{
    TOOLINFOA info = toolOf(window, id);
    if (rect)
        info.rect = *rect;
    else if (id)
        ::GetClientRect(info.hwnd, &info.rect);
    info.lpszText = const_cast<char*>(text);
    return SendMessage(TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&info)) != 0;
}

BOOL CToolTipCtrl::AddTool(CWnd* window, UINT textId, const RECT* rect, UINT_PTR id)
{
    CString text;
    text.LoadString(textId);
    return AddTool(window, static_cast<const char*>(text), rect, id);
}

void CToolTipCtrl::DelTool(CWnd* window, UINT_PTR id)
{
    TOOLINFOA info = toolOf(window, id);
    SendMessage(TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&info));
}

void CToolTipCtrl::UpdateTipText(const char* text, CWnd* window, UINT_PTR id)
{
    TOOLINFOA info = toolOf(window, id);
    info.lpszText = const_cast<char*>(text);
    SendMessage(TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&info));
}

void CToolTipCtrl::UpdateTipText(UINT textId, CWnd* window, UINT_PTR id)
{
    CString text;
    text.LoadString(textId);
    UpdateTipText(static_cast<const char*>(text), window, id);
}

CString CStatusBarCtrl::GetText(int part, int* how) const
{
    const auto answer = static_cast<DWORD>(SendMessage(SB_GETTEXTLENGTHA, static_cast<WPARAM>(part)));
    if (how) *how = HIWORD(answer);
    CString text;
    copyRowText(*this, LOWORD(answer), SB_GETTEXTA, part, text);
    return text;
}

BOOL CImageList::Attach(HIMAGELIST list)
{
    if (!list || m_hImageList) return FALSE;
    m_hImageList = list;
    return TRUE;
}

HIMAGELIST CImageList::Detach() { return std::exchange(m_hImageList, nullptr); }

BOOL CImageList::DeleteImageList() { return m_hImageList && ImageList_Destroy(Detach()); }

BOOL CImageList::DragEnter(CWnd* lock, POINT point)
{
    return ImageList_DragEnter(corekit::detail::safeHandle(lock), point.x, point.y);
}

BOOL CImageList::DragLeave(CWnd* lock) { return ImageList_DragLeave(corekit::detail::safeHandle(lock)); }
