// Drags from other programs of an X display.
#pragma once

class QEvent;
class QObject;

namespace corekit::detail {

// Once for an application object.
void watchForeignDrags();

// True if the event was such a drag over or onto a top window of ours, which has had it with data that are
// read within the limits of SelectionReader.h: the toolkit would wait five seconds for a source that hangs,
// at each question, and files are asked for as soon as they come over a window that takes them.
bool passForeignDrag(QObject* surface, QEvent* event);

} // namespace corekit::detail
