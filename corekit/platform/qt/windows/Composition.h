// What an input method is composing, before it is final.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

namespace corekit::detail {

// Shows the text over the window, at its caret, underlined; an empty one takes it away.
void showComposition(const Window& window, const QString& text);

} // namespace corekit::detail
