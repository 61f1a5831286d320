// The macro toolbar: up to fifty buttons, each of which asks the frame to start a macro.
//
// A press posts the registered message "Tavrix.Customtoolbar.Macro" to the frame, with the button's index,
// and gives the frame the focus; a button without a macro does nothing. User-interface thread only.
//
//     if (m_macros.Create(this, barId, &profile)) DockControlBar(&m_macros);
//     ...
//     ON_REGISTERED_MESSAGE(CCustomToolbar::s_uMacroMsg, &CMainFrame::OnMacro)
//     ...
//     LRESULT CMainFrame::OnMacro(WPARAM button, LPARAM)
//     {
//         Run(m_macros.GetMacro(static_cast<int>(button)));
//         return 0;
//     }
#pragma once

#include "corekit/framework/ui/Button.h"
#include "corekit/framework/ui/DialogBar.h"
#include "corekit/framework/ui/GdiObject.h"
#include "corekit/framework/ui/ToolTipCtrl.h"
#include "corekit/graphics/Dib.h"

#include <memory>
#include <vector>

class CPropertyStore;

class COREKIT_API CCustomToolbar : public CDialogBar {
    DECLARE_DYNAMIC(CCustomToolbar)
public:
    static UINT s_uMacroMsg; // the registered message

    // No window and no buttons yet. The object is its owner's and may outlive its window.
    CCustomToolbar();

    ~CCustomToolbar() override;

    // A bar of the frame with the buttons of the profile; 0, and no bar, if there are none.
    using CDialogBar::Create;
    // A bar of the frame with the buttons of the profile, docked at the top and dockable at all sides; 0,
    // and no bar, if there are none or the window cannot be made. The profile is only read.
    int Create(CFrameWnd* frame, UINT id, CPropertyStore* profile);
    // Replaces the buttons by those of the profile, in the window too if there is one; 0 if it has none or
    // is null.
    int LoadProfile(CPropertyStore* profile);

    UINT GetResourceID() const { return static_cast<UINT>(GetDlgCtrlID()); } // of the bar, as given to Create
    // At most maximumMacroButtons.
    int GetButtonCount() const { return static_cast<int>(m_buttons.size()); }
    // The name of the macro that a button stands for, by its index from 0; empty for none, or no such
    // button.
    CString GetMacro(int button) const;

    // In pixels: 40 for each button beside the last, and 48 across. A bar that stands has its buttons in a
    // column.
    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    CSize CalcDynamicLayout(int length, DWORD mode) override;                // a floating bar is one row
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override; // its buttons are always enabled
    BOOL PreTranslateMessage(MSG* message) override;                         // shows the tips

protected:
    void OnPress(UINT id); // asks the frame to start the button's macro
    void OnUpdateButton(CCmdUI* item);
    DECLARE_MESSAGE_MAP()

private:
    // A button that draws its bitmap, else its name.
    class CMacroButton;
    struct Button;

    void ConstructButtons(); // makes their windows and tips
    void PositionButtons();  // in a row or a column

    CFrameWnd* m_frame = nullptr; // not owned
    std::vector<std::unique_ptr<Button>> m_buttons;
    CToolTipCtrl m_tips;
    CFont m_font;       // of names
    bool m_lies = true; // else it stands
};
