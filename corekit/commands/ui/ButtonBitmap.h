// The bitmap of a macro button in a dialog: chosen from a file, shown in a preview.
#pragma once

#include "corekit/commands/MacroBitmaps.h"
#include "corekit/framework/ui/Wnd.h"

namespace corekit::detail {

enum class BitmapChoice { cancelled, taken, refused };

// Asks for a file. The bitmap is dropped where the file holds one that is too large or cannot be read, which
// is told in a box.
BitmapChoice chooseButtonBitmap(CWnd& dialog, std::unique_ptr<CDib>& bitmap);
bool fitsOnButton(const CDib& bitmap);

// Control 1002 shows the bitmap, 1005 that there is none.
inline constexpr int previewControl = 1002, noBitmapControl = 1005;
void showPreview(CWnd& dialog, const CDib* bitmap);
void drawPreview(const DRAWITEMSTRUCT& item, const CDib* bitmap);

} // namespace corekit::detail
