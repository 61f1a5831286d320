// A font of the drawing calls as the toolkit's own, for the texts of controls.
#pragma once

#include "corekit/platform/Gdi.h"

#include <QFont>

class QWidget;

namespace corekit::detail {

// For a null or unknown handle the font that the theme gives to such a widget.
QFont toolkitFont(HFONT font, const QWidget* widget);

} // namespace corekit::detail
