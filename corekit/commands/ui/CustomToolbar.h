// The macro toolbar: up to fifty buttons, each of which asks the frame to start a macro.
//
// A press posts the registered message "Tavrix.Customtoolbar.Macro" to the frame, with the button's index,
// and gives the frame the focus; a button without a macro does nothing. User-interface thread only.
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

    CCustomToolbar();
    ~CCustomToolbar() override;

    // A bar of the frame with the buttons of the profile; 0, and no bar, if there are none.
    using CDialogBar::Create;
    int Create(CFrameWnd* frame, UINT id, CPropertyStore* profile);
    // Replaces the buttons by those of the profile; 0 if it has none.
    int LoadProfile(CPropertyStore* profile);
    UINT GetResourceID() const { return static_cast<UINT>(GetDlgCtrlID()); }
    int GetButtonCount() const { return static_cast<int>(m_buttons.size()); }
    CString GetMacro(int button) const; // empty for none, or no such button

    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    CSize CalcDynamicLayout(int length, DWORD mode) override;
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void OnPress(UINT id);
    void OnUpdateButton(CCmdUI* item);
    DECLARE_MESSAGE_MAP()

private:
    class CMacroButton;
    struct Button;

    void ConstructButtons();
    void PositionButtons();

    CFrameWnd* m_frame = nullptr;
    std::vector<std::unique_ptr<Button>> m_buttons;
    CToolTipCtrl m_tips;
    CFont m_font;
    bool m_lies = true;
};
