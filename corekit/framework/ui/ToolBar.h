// A bar of buttons with pictures, one command each.
//
//     CToolBar bar;
//     bar.Create(&frame, WS_CHILD | WS_VISIBLE | CBRS_TOP | CBRS_TOOLTIPS);
//     bar.AddBitmap(2, pictures); // for the caller to delete
//     bar.SetButtons(commands, 3); // 0 is a separator
//
// A button sends its command to the bar's owner. Update handlers enable and check it when the program is
// idle. Its tip is the command's text of the string table, behind the newline. Pixels of colour 0xC0C0C0 in
// the pictures show nothing. User-interface thread only.
#pragma once

#include "corekit/framework/ui/ControlBar.h"
#include "corekit/framework/ui/ImageList.h"
#include "corekit/framework/ui/ToolTipCtrl.h"

namespace corekit::detail {
struct BarButton; // a button for the layout (framework/BarLayout.h)
}

// State of a button: stays down; looks pressed; can be pressed; takes no room.
inline constexpr BYTE TBSTATE_CHECKED = 1, TBSTATE_PRESSED = 2, TBSTATE_ENABLED = 4, TBSTATE_HIDDEN = 8;
// Kind of a button. One of TBSTYLE_CHECK changes its check mark when it is pressed; groups are kept and have
// no effect.
inline constexpr BYTE TBSTYLE_BUTTON = 0, TBSTYLE_SEP = 1, TBSTYLE_CHECK = 2, TBSTYLE_GROUP = 4,
                      TBSTYLE_CHECKGROUP = TBSTYLE_CHECK | TBSTYLE_GROUP;

struct TBBUTTON {
    int iBitmap;   // number of its picture; of a separator its width, 0 the usual one
    int idCommand; // 0 of a separator
    BYTE fsState;  // TBSTATE_
    BYTE fsStyle;  // TBSTYLE_
};

class COREKIT_API CToolBar : public CControlBar {
    DECLARE_DYNAMIC(CToolBar)
public:
    CToolBar();
    ~CToolBar() override;

    using CControlBar::Create;
    // 0 on failure. The owner, which gets the commands, is `parent`.
    BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_TOP, UINT id = AFX_IDW_TOOLBAR);

    // ---- Pictures. All numbers count on from the first strip; a strip keeps the size set when it was added.
    // Of pictures that are added from now on, in pixels; 16 by 15 at first.
    void SetBitmapSize(CSize size) { m_imageSize = size; }
    // In pixels, 24 by 22 at first; pictures stand in the middle.
    void SetButtonSize(CSize size);
    CSize GetButtonSize() const { return m_buttonSize; }
    CSize GetBitmapSize() const { return m_imageSize; }
    // The number of the first picture, -1 on failure. Cuts the strip, which is copied, into `count` pictures
    // side by side.
    int AddBitmap(int count, HBITMAP strip);

    // ---- Buttons, from 0. Operations on an index that does not exist give 0.
    // Takes the place of all buttons; all are enabled.
    BOOL SetButtons(const UINT* commands, int count); // pictures in order
    int GetButtonCount() const { return static_cast<int>(m_buttons.size()); }
    // Copies its values.
    BOOL GetButton(int index, TBBUTTON* button) const;
    BOOL InsertButton(int index, const TBBUTTON* button); // at the count: appends
    // Those behind move to the front.
    BOOL DeleteButton(int index);
    UINT GetItemID(int index) const;        // its command
    int CommandToIndex(UINT command) const; // -1 without one
    // In the client area; of a hidden button without width.
    BOOL GetItemRect(int index, RECT* rect) const;
    int ButtonAt(CPoint client) const; // -1 for none and for a separator
    // A state for the button of the command: whether there is one.
    BOOL EnableButton(UINT command, BOOL enable = TRUE) { return SetState(command, TBSTATE_ENABLED, enable); }
    BOOL CheckButton(UINT command, BOOL check = TRUE) { return SetState(command, TBSTATE_CHECKED, check); }

    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    // A bar of CBRS_SIZE_DYNAMIC that floats breaks into lines of the width asked for.
    CSize CalcDynamicLayout(int length, DWORD mode) override;
    // Asks for each button by its command, then for controls that lie in the bar.
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;
    void OnBarStyleChange(DWORD former, DWORD style) override;

protected:
    void DoPaint(CDC* dc) override;
    void OnSize(UINT how, int width, int height);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnMouseLeave();
    void OnCaptureChanged(CWnd* other);
    void OnSysColorChange();
    DECLARE_MESSAGE_MAP()

private:
    struct Strip;
    struct Picture {
        Strip* strip; // that holds the picture
        int index;    // in the strip
    };
    friend class CToolCmdUI;

    std::vector<corekit::detail::BarButton> Measures() const; // widths, and which are separators
    void Arrange() const;                                     // fills m_places where they are unknown
    void Changed();                                           // places are unknown, nothing is pressed
    BOOL SetState(UINT command, BYTE state, BOOL on);
    void SetStateAt(std::size_t index, BYTE state);
    void InvalidateButton(int index);
    void SetHot(int index); // the button below the mouse; shows its tip
    void DrawButton(CDC& dc, std::size_t index, const CRect& rect);
    bool PressAt(CPoint point); // false where no button is

    std::vector<TBBUTTON> m_buttons;
    mutable std::vector<CRect> m_places; // in the client area; empty: to be computed
    std::vector<std::unique_ptr<Strip>> m_strips;
    std::vector<Picture> m_pictures;
    CSize m_imageSize{16, 15}, m_buttonSize{24, 22}; // pixels
    int m_hot = -1, m_pressed = -1;                  // button below the mouse, and pressed one; -1: none
    CToolTipCtrl m_tips;                             // made when the first tip is due
};
