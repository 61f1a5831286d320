// The window of the example: which keyboard types, which face writes, and the text.
#pragma once

#include "TextDrop.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"

#include <string>
#include <vector>

class EditWindow : public CWnd {
public:
    // Shown, with the focus in the text.
    bool Open();

    CMultilineUnicodeEditCtl& Text() { return m_text; }
    // The first keyboard whose name begins so; false if there is none.
    bool UseKeyboard(const std::string& name);

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void OnSize(UINT how, int width, int height);
    void OnSetFocus(CWnd* before);
    void OnDestroy();
    void OnSysColorChange();
    void OnKeyboardChosen();
    void OnFaceChosen();
    DECLARE_MESSAGE_MAP()

private:
    bool MakeControls();
    void ListKeyboards();
    void ListFaces();
    void ShowKeyboard();

    CWnd m_keyboardLabel, m_keyboards, m_faceLabel, m_faces;
    CMultilineUnicodeEditCtl m_text;
    TextDrop m_drop{m_text};
    int m_shownKeyboard = -1;
};
