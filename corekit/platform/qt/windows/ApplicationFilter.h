// The one filter on the application: events of the toolkit become messages.
//
// Keys, mouse, wheel and composed text become messages of the queued kind: offered to pre-translation, then
// given to the window. What comes from within (size, paint, focus, activation, closing) is sent. A bare
// window consumes its input; a control gets the event back by its default.
#pragma once

#include "corekit/platform/qt/windows/EventInHand.h"
#include "corekit/platform/qt/windows/Window.h"

class QEvent;
class QInputMethodEvent;
class QKeyEvent;

namespace corekit::detail {

// Puts the filter on the application object; false if it is there, or the object is not.
bool installFilter();
// The same, and joins the message queue to the toolkit's loop, once.
void startWindows();

bool offer(MSG& message); // to pre-translation; true: consumed
// Offers it, then gives it to its window.
LRESULT offerAndSend(MSG& message, bool* wasConsumed = nullptr);
DWORD messageTime();
POINT pointerPlace();

// Each answers whether the event is done with.
bool keyEvent(Window* window, QObject* receiver, QKeyEvent* event);
bool composedText(Window& window, QInputMethodEvent* event);
bool mouseEvent(QWidget& receiver, QEvent* event);
bool wheelEvent(QWidget& receiver, QEvent* event);
void leaveEvent(Window& window, const QWidget& receiver);
bool contextMenuEvent(Window& window, QObject* receiver, QEvent* event);

} // namespace corekit::detail
