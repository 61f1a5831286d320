// Message boxes whose buttons say what they do.
//
//     switch (CustomMessageBox(this, "The script has changed.", nullptr, "Save", "Discard", "Go back")) ...
//
// Each returns the index of the button that was pressed, from 0, or -1 if the box was closed without one. The
// caption is the host's title, string 57344; the icon may be null. A string id that no module has gives an
// empty text. User-interface thread only; a call blocks until the box is closed.
#pragma once

#include "corekit/framework/ui/Dialog.h"

#include <array>
#include <span>

// Two to five buttons with the texts b1 to b5, from the left. The box lies over `parent`, which may be
// null.
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2);
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2,
                                 const char* b3);
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2,
                                 const char* b3, const char* b4);
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, const char* b1, const char* b2,
                                 const char* b3, const char* b4, const char* b5);
// The labels by their numbers in the string table.
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2);
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3);
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3,
                                 UINT b4);
COREKIT_API int CustomMessageBox(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3,
                                 UINT b4, UINT b5);
// The text by its number, too.
COREKIT_API int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2);
COREKIT_API int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3);
COREKIT_API int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3, UINT b4);
COREKIT_API int CustomMessageBox(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3, UINT b4,
                                 UINT b5);
// Three wide buttons whose labels may take two lines.
COREKIT_API int CustomMessageBoxWide(CWnd* parent, const char* text, HICON icon, const char* b1,
                                     const char* b2, const char* b3);
COREKIT_API int CustomMessageBoxWide(CWnd* parent, const char* text, HICON icon, UINT b1, UINT b2, UINT b3);
COREKIT_API int CustomMessageBoxWide(CWnd* parent, UINT text, HICON icon, UINT b1, UINT b2, UINT b3);

namespace corekit::detail {
// What the dialogs below have in common. The texts are the caller's for as long as the dialog lives.
class COREKIT_API CustomMessage : public CDialog {
public:
    // After DoModal: the index of the button, or -1.
    int Result() const { return m_result; }

protected:
    // Refers to the labels, one for each control of `buttonIds`; the text is copied, the icon stays the
    // caller's.
    CustomMessage(UINT templateId, CWnd* parent, const char* text, HICON icon, std::span<const int> buttonIds,
                  std::span<const char* const> buttons);

    BOOL OnInitDialog() override; // puts title, labels and icon in place
    // A button of the list ends the dialog with its index as the result.
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    void DoDataExchange(CDataExchange* exchange) override;

private:
    std::span<const int> m_buttonIds;       // of the controls, in the order of the indexes
    std::array<const char*, 5> m_buttons{}; // the caller's labels
    CString m_text;                         // may have several lines
    HICON m_icon;                           // null for none
    int m_result = -1;                      // index of the button pressed
};
} // namespace corekit::detail

// The dialogs behind the functions, one for each number of buttons. Labels are not copied and must live as
// long as the dialog.
class COREKIT_API DLG_CustomMsg2 : public corekit::detail::CustomMessage {
    DECLARE_DYNAMIC(DLG_CustomMsg2)
    // Run it with DoModal.
    DLG_CustomMsg2(CWnd* parent, const char* text, HICON icon, std::span<const char* const, 2> buttons);
};
// Three buttons.
class COREKIT_API DLG_CustomMsg3 : public corekit::detail::CustomMessage {
    DECLARE_DYNAMIC(DLG_CustomMsg3)
    DLG_CustomMsg3(CWnd* parent, const char* text, HICON icon, std::span<const char* const, 3> buttons);
};
class COREKIT_API DLG_CustomMsg3Wide : public corekit::detail::CustomMessage { // two lines a button
    DECLARE_DYNAMIC(DLG_CustomMsg3Wide)
    DLG_CustomMsg3Wide(CWnd* parent, const char* text, HICON icon, std::span<const char* const, 3> buttons);
};
// Four buttons.
class COREKIT_API DLG_CustomMsg4 : public corekit::detail::CustomMessage {
    DECLARE_DYNAMIC(DLG_CustomMsg4)
    DLG_CustomMsg4(CWnd* parent, const char* text, HICON icon, std::span<const char* const, 4> buttons);
};
// Five buttons, the most there are.
class COREKIT_API DLG_CustomMsg5 : public corekit::detail::CustomMessage {
    DECLARE_DYNAMIC(DLG_CustomMsg5)
    DLG_CustomMsg5(CWnd* parent, const char* text, HICON icon, std::span<const char* const, 5> buttons);
};
