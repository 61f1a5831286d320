// Dialog units: shares of a character of the font that the toolkit gives its controls.
#include "corekit/platform/MulDiv.h"
#include "corekit/platform/qt/dialogs/DialogState.h"
#include "corekit/platform/Toolkit.h"

#include <QApplication>
#include <QFontMetrics>

namespace corekit::detail {

QPoint pixelsOf(int x, int y)
{
    const LONG units = GetDialogBaseUnits();
    const DWORD both = static_cast<DWORD>(units);
    return {MulDiv(x, LOWORD(both), 4), MulDiv(y, HIWORD(both), 8)};
}

} // namespace corekit::detail

LONG GetDialogBaseUnits()
{
    if (!ToolkitIsRunning()) return static_cast<LONG>(MAKELONG(8, 16));
    const QFontMetrics metrics(QApplication::font());
    const int alphabet =
        metrics.horizontalAdvance(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"));
    return static_cast<LONG>(
        MAKELONG(static_cast<WORD>((alphabet / 26 + 1) / 2), static_cast<WORD>(metrics.height())));
}

BOOL MapDialogRect(HWND dialog, RECT* rect)
{
    if (!rect || !IsWindow(dialog)) return FALSE;
    const QPoint first = corekit::detail::pixelsOf(rect->left, rect->top);
    const QPoint second = corekit::detail::pixelsOf(rect->right, rect->bottom);
    *rect = {first.x(), first.y(), second.x(), second.y()};
    return TRUE;
}
