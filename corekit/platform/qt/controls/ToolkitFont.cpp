#include "corekit/platform/qt/controls/ToolkitFont.h"

#include "corekit/platform/qt/drawing/GdiObjects.h"
#include "corekit/platform/qt/text/SizedFont.h"

#include <QApplication>

#include <algorithm>
#include <cmath>

namespace corekit::detail {

QFont toolkitFont(HFONT handle, const QWidget* widget)
{
    Font* const font = handle ? GdiTable::find<Font>(handle) : nullptr;
    const SizedFont* const sized = font ? font->sized() : nullptr;
    if (!sized) return QApplication::font(widget);
    QFont made(QString::fromStdString(sized->face().name()));
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(sized->em()))));
    made.setBold(font->request.bold);
    made.setItalic(font->request.italic);
    made.setUnderline(font->request.underline);
    made.setStrikeOut(font->request.strikeOut);
    return made;
}

} // namespace corekit::detail
