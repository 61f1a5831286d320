// What this program or another drags over a window and lets go there.
//
//     class TextDrop : public COleDropTarget {
//         DROPEFFECT OnDragOver(CWnd*, COleDataObject* data, DWORD, CPoint) override
//         {
//             return data->IsDataAvailable(CF_UNICODETEXT) ? DROPEFFECT_COPY : DROPEFFECT_NONE;
//         }
//         ...
//     };
//     TextDrop drop;
//     drop.Register(window); // as long as the window or the target lives
//
// User-interface thread only.
#pragma once

#include "corekit/framework/CmdTarget.h"
#include "corekit/framework/Geometry.h"
#include "corekit/platform/DragDrop.h"

class CWnd;

using DROPEFFECT = DWORD; // DROPEFFECT_NONE, _COPY, _MOVE, _LINK

// What is dragged: good within the operation that is given it.
class COREKIT_API COleDataObject {
public:
    // Refers to the data.
    explicit COleDataObject(const corekit::detail::DraggedData& data) : m_data(data) {}
    COleDataObject(const COleDataObject&) = delete;
    COleDataObject& operator=(const COleDataObject&) = delete;

    // CF_TEXT, CF_UNICODETEXT, CF_HDROP or a registered format.
    BOOL IsDataAvailable(UINT format) const { return m_data.hasFormat(format); }
    // For the caller to free (of CF_HDROP: to end with DragFinish); null if there is none.
    HGLOBAL GetGlobalData(UINT format) const { return m_data.get(format); }

private:
    const corekit::detail::DraggedData& m_data;
};

class COREKIT_API COleDropTarget : public CCmdTarget, private corekit::detail::DropTarget {
    DECLARE_DYNAMIC(COleDropTarget)
public:
    COleDropTarget() = default;
    ~COleDropTarget() override; // revokes itself
    COleDropTarget(const COleDropTarget&) = delete;
    COleDropTarget& operator=(const COleDropTarget&) = delete;

    // One target a window, one window a target. 0 for an object without a window and while it is registered.
    BOOL Register(CWnd* window);
    // Nothing happens unless it is registered.
    virtual void Revoke();

    // Points are in the client area; `keys` are MK_ flags. The answer is what a drop here would do.
    virtual DROPEFFECT OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint) { return DROPEFFECT_NONE; }
    // At each movement behind OnDragEnter, also over child windows without a target of their own.
    virtual DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint) { return DROPEFFECT_NONE; }
    // The pointer has left, or the drag was broken off.
    virtual void OnDragLeave(CWnd*) {}
    // Nonzero if the data was taken. With the effect that the last answer and the source agreed on.
    virtual BOOL OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint) { return FALSE; }

    HWND m_hWnd = nullptr; // while it is registered

private:
    // From the platform; each calls the operation above of the same purpose.
    DWORD enter(HWND window, const corekit::detail::DraggedData& data, DWORD keys, POINT point) override;
    DWORD over(HWND window, const corekit::detail::DraggedData& data, DWORD keys, POINT point) override;
    void leave(HWND window) override;
    DWORD drop(HWND window, const corekit::detail::DraggedData& data, DWORD effect, POINT point) override;
};
