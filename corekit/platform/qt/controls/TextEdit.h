// The edit control with many lines, and what it shares with the one of a single line.
#pragma once

#include "corekit/platform/qt/controls/Control.h"
#include "corekit/platform/qt/controls/LineEdit.h"

namespace corekit::detail {

std::unique_ptr<Window> makeTextEdit(QWidget* parent);

EntryRules rulesOf(DWORD style); // ES_
// For EM_GETLINE: as much as the buffer's first word says, without a zero; wide if the message is.
int copyLine(const Window& control, const QString& line, LPARAM buffer);

} // namespace corekit::detail
