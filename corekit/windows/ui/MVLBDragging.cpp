// Items that are dragged out, with either button.
#include "corekit/platform/Cursors.h"
#include "corekit/platform/ImageLists.h"
#include "corekit/windows/ui/MVLBList.h"

namespace {

constexpr int dragDistance = 2;
constexpr int imageDrop = 50; // pixels that the image's middle hangs below the mouse
constexpr DWORD effectMarks = 0xFF0000;

} // namespace

// True: the list itself must not see the press, or a selection of several would be lost.
bool CMVLBList::Press(Button button, CPoint point)
{
    if (m_dragging == button) return true;
    if (m_dragging != Button::none && EndDrag()) m_owner.OnDragCancel();
    if (!m_view.isDraggingEnabled || SelectedItemAt(point) < 0) return false;
    m_dragStart =
        CRect(point.x - dragDistance, point.y - dragDistance, point.x + dragDistance, point.y + dragDistance);
    m_pressed = button;
    return true;
}

int CMVLBList::SelectedItemAt(CPoint point) const
{
    BOOL isOutside = FALSE;
    const int index = static_cast<int>(ItemFromPoint(point, isOutside));
    CRect place;
    if (isOutside || GetItemRect(index, &place) < 0 || !place.PtInRect(point)) return -1;
    return IsSelected(index) ? index : -1;
}

void CMVLBList::StartDrag(CPoint point)
{
    CArray<int, int> ids;
    AppendSelected(ids);
    const HWND own = m_hWnd;
    if (!m_owner.CanDrag(ids) || !::IsWindow(own)) return;
    m_dragging = std::exchange(m_pressed, Button::none);
    SetCapture();
    auto image = std::make_unique<CImageList>();
    m_owner.MakeDragImage(image.get());
    if (!::IsWindow(own) || m_dragging == Button::none) return; // ended while the image was made
    m_dragImage = std::move(image);
    m_dragImage->BeginDrag(0, {0, 0});
    CImageList::DragEnter(GetTopLevelParent(), point);
    ShowCursor(FALSE);
    MoveDrag(point);
}

void CMVLBList::MoveDrag(CPoint point)
{
    ClientToScreen(&point);
    const HWND own = m_hWnd;
    const DWORD effect = m_owner.GetDragEffect(point.x, point.y) & ~effectMarks;
    if (!::IsWindow(own) || !m_dragImage) return; // the owner has ended it
    m_dragImage->SetDragCursorImage(effect == 1 || effect == 2 ? static_cast<int>(effect) : 0, {0, 0});
    int width = 0, height = 0;
    ImageList_GetIconSize(*m_dragImage, &width, &height);
    GetTopLevelParent()->ScreenToClient(&point);
    CImageList::DragMove(point + CSize(-width / 2, imageDrop - height / 2));
}

// False if there was none.
bool CMVLBList::EndDrag()
{
    if (m_dragging == Button::none) return false;
    m_dragging = Button::none;
    const std::unique_ptr<CImageList> image = std::move(m_dragImage); // null while the owner makes it
    if (image) {
        CImageList::DragLeave(GetTopLevelParent());
        CImageList::EndDrag();
    }
    if (GetCapture() == this) ReleaseCapture();
    if (image) ShowCursor(TRUE);
    return true;
}

void CMVLBList::Release(Button button, CPoint point)
{
    m_pressed = Button::none;
    if (m_dragging != button || !EndDrag()) return;
    CArray<int, int> ids;
    AppendSelected(ids);
    ClientToScreen(&point);
    m_owner.OnDrop(point.x, point.y, ids, button == Button::right);
}

void CMVLBList::OnLButtonDown(UINT flags, CPoint point)
{
    if (Press(Button::left, point))
        SetFocus();
    else
        CListBox::OnLButtonDown(flags, point);
}

void CMVLBList::OnRButtonDown(UINT flags, CPoint point)
{
    if (!Press(Button::right, point)) CListBox::OnRButtonDown(flags, point);
}

void CMVLBList::OnMouseMove(UINT flags, CPoint point)
{
    if (m_dragging != Button::none)
        MoveDrag(point);
    else if (m_pressed == Button::none)
        CListBox::OnMouseMove(flags, point);
    else if (!m_dragStart.PtInRect(point))
        StartDrag(point);
}

void CMVLBList::OnLButtonUp(UINT flags, CPoint point)
{
    Release(Button::left, point);
    if (m_hWnd) CListBox::OnLButtonUp(flags, point);
}

void CMVLBList::OnRButtonUp(UINT flags, CPoint point)
{
    Release(Button::right, point);
    if (m_hWnd) CListBox::OnRButtonUp(flags, point);
}

void CMVLBList::OnCaptureChanged(CWnd* next)
{
    CListBox::OnCaptureChanged(next);
    if (EndDrag()) m_owner.OnDragCancel();
}
