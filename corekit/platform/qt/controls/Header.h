// The header control, alone or as the one at the top of a list view.
#pragma once

#include "corekit/platform/qt/controls/ListModel.h"

class QHeaderView;

namespace corekit::detail {

// A window for a header that a list view has.
HWND adoptHeader(HWND list, QHeaderView& header, ListModel& columns);
// As many columns as the header has. Set refuses numbers that are not each of them once.
bool setHeaderOrder(QHeaderView& header, const int* columns);
bool getHeaderOrder(const QHeaderView& header, int* columns);

} // namespace corekit::detail
