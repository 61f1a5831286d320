// Items that their window's parent draws: the messages that ask for sizes, order and pictures.
#pragma once

#include "corekit/platform/Controls.h"

#include <QPainter>
#include <QStyle>

namespace corekit::detail {

class Window;

// Sends WM_DRAWITEM for a rectangle in the painter's units. The context draws straight on the pixels that the
// painter stands on, clipped to the item; `parts` may leave handle, context and rectangle empty.
void sendDrawItem(const Window& control, QPainter& painter, const QRect& item, DRAWITEMSTRUCT parts);
// ODS_ values for what the style says of an item.
UINT drawStateOf(QStyle::State state);

// Sends WM_MEASUREITEM. The size asked with stands if nobody answers.
struct ItemSize {
    int width, height;
};
ItemSize sendMeasureItem(const Window& control, UINT type, UINT item, UINT_PTR data, ItemSize proposal);
// Below 0, 0 or above 0.
int sendCompareItem(const Window& control, UINT type, UINT_PTR first, UINT_PTR second);
void sendDeleteItem(const Window& control, UINT type, UINT item, UINT_PTR data);

} // namespace corekit::detail
