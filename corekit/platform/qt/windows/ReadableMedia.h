// What the clipboard holds, read so that a program that holds it and hangs is not waited for as long as the
// toolkit would.
#pragma once

#include <QClipboard>
#include <QString>

class QMimeData;

namespace corekit::detail {

// Another program of the X display holds it, so that reading it means asking that program.
bool isHeldElsewhere(QClipboard::Mode mode = QClipboard::Clipboard);

// Good until the next call for that mode; null where there is no such thing. From another program, each kind
// of data is fetched as it is asked for, and is not there if that program does not give it (SelectionReader.h
// has the limits).
const QMimeData* readableMedia(QClipboard::Mode mode = QClipboard::Clipboard);
QString readableText(QClipboard::Mode mode = QClipboard::Clipboard);
// That, for what the toolkit is about to paste from the clipboard; what is dropped stays what it is.
const QMimeData* readable(const QMimeData* media);

} // namespace corekit::detail
