// Pastes into the fields of dialogs that the toolkit makes whole.
#pragma once

class QWidget;

namespace corekit::detail {

// Each field in the dialog, as it stands now, reads what other programs hold within the limits of
// SelectionReader.h, by keys, the middle button and the menu.
void boundPastes(const QWidget& dialog);

} // namespace corekit::detail
