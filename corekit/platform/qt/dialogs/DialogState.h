// What the dialog layer knows about a dialog, beside its window. Toolkit's thread.
#pragma once

#include "corekit/platform/Dialogs.h"

#include <QPoint>

#include <memory>

class QEventLoop;
class QWidget;

namespace corekit::detail {

struct DialogState {
    HWND focus = nullptr;        // who has the focus, or gets it when the dialog becomes active
    WORD defaultId = 0;          // of the button that Enter presses; 0: none
    HWND shownDefault = nullptr; // the button that is drawn as the default one
    QEventLoop* loop = nullptr;  // while it is modal
    bool ended = false;
    INT_PTR result = 0;
};

// Null for what is no dialog.
DialogState* findDialog(HWND dialog);
std::shared_ptr<DialogState> shareDialog(HWND dialog); // for use across messages
DialogState& addDialog(HWND dialog);
void removeDialog(HWND dialog);

// Pixels of the units of the toolkit's font for controls.
QPoint pixelsOf(int x, int y);

// The answer of a control to WM_GETDLGCODE.
UINT dialogCode(HWND control, const MSG* message = nullptr);
// Gives the focus to a control of the dialog; the text of a field is selected.
void focusControl(HWND dialog, HWND control);
// Draws the button that Enter would press now as the default one.
void showDefault(HWND dialog);
// The button that Enter presses now: the one with the focus, else the dialog's own; null if there is none.
HWND currentDefault(HWND dialog);

// Gives the controls that have no text of their own the name of the label before them.
void nameControls(HWND dialog);
// Turns the dialog to the right-to-left side if the user's language is written that way.
void mirrorForLanguage(HWND dialog);

} // namespace corekit::detail
