// Whether the program that holds the clipboard is there to give it out.
#pragma once

#include <QClipboard>

class QEvent;

namespace corekit::detail {

// False while the owner is another program that does not answer, such as one that hangs: the toolkit would
// wait for it for seconds. An answer is waited for a quarter of a second, and an owner that gave none is not
// asked again for a while. True wherever nothing has to be asked.
bool clipboardAnswers(QClipboard::Mode mode = QClipboard::Clipboard);

// Whether the event makes a field of the toolkit ask such an owner: a paste by key or by the middle button,
// or the menu that offers one. The field is better left without it.
bool asksSilentClipboard(const QEvent& event);

} // namespace corekit::detail
