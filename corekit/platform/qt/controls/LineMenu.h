// The menu of a line of text.
#pragma once

#include <functional>

class QLineEdit;
class QMenu;

namespace corekit::detail {

// The toolkit's own, but for its question to whoever holds the clipboard: it would fetch the whole text to
// see whether there is any. The line owns it.
QMenu* makeLineMenu(QLineEdit& line, const std::function<void()>& paste);

} // namespace corekit::detail
