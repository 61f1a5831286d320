#include "corekit/commands/ui/ButtonBitmap.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/FileDialog.h"
#include "corekit/resources/Messages.h"

namespace corekit::detail {

bool fitsOnButton(const CDib& bitmap)
{
    return bitmap.GetBitmapWidth() <= largestMacroBitmap && bitmap.GetBitmapHeight() <= largestMacroBitmap;
}

BitmapChoice chooseButtonBitmap(CWnd& dialog, std::unique_ptr<CDib>& bitmap)
{
    CFileDialog file(TRUE, "bmp", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST,
                     "Bitmap Files (*.bmp)|*.bmp||", &dialog);
    if (file.DoModal() != IDOK) return BitmapChoice::cancelled;
    bitmap = std::make_unique<CDib>();
    try {
        bitmap->LoadDIBFile(file.GetPathName());
    } catch (CException* error) {
        bitmap.reset();
        error->ReportError(&dialog);
        error->Delete();
        return BitmapChoice::refused;
    }
    if (fitsOnButton(*bitmap)) return BitmapChoice::taken;
    bitmap.reset();
    StockMessageBox(&dialog, message::buttonBitmapTooLarge, MB_OK | MB_ICONEXCLAMATION);
    return BitmapChoice::refused;
}

void showPreview(CWnd& dialog, const CDib* bitmap)
{
    CWnd* const preview = dialog.GetDlgItem(previewControl);
    CWnd* const none = dialog.GetDlgItem(noBitmapControl);
    if (!preview || !none) return;
    preview->ShowWindow(bitmap ? SW_SHOW : SW_HIDE);
    none->ShowWindow(bitmap ? SW_HIDE : SW_SHOW);
    preview->Invalidate();
}

void drawPreview(const DRAWITEMSTRUCT& item, const CDib* bitmap)
{
    if (bitmap) bitmap->DrawBitmap(item.hDC, CPoint(0, 0));
}

} // namespace corekit::detail
