// The menu of a line of text.
#pragma once

#include <functional>
#include <QPoint>

class QLineEdit;

namespace corekit::detail {

// The toolkit's own, but for its question to whoever holds the clipboard: it would fetch the whole text to
// see whether there is any.
void showLineMenu(QLineEdit& line, QPoint onScreen, const std::function<void()>& paste);

} // namespace corekit::detail
