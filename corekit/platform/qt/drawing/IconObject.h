// The object behind HICON and HCURSOR, and what the toolkit takes in its place.
#pragma once

#include "corekit/platform/Cursors.h"
#include "corekit/platform/qt/drawing/GdiObjects.h"

#include <memory>
#include <optional>
#include <QCursor>
#include <QIcon>
#include <QImage>
#include <span>

namespace corekit::detail {

struct COREKIT_API Icon final : GdiObject {
    static constexpr GdiKind kindOf = GdiKind::icon;
    Icon() : GdiObject(GdiKind::icon) {}

    QSize size() const;
    QImage at(QSize size, double scale) const; // in units

    QImage picture; // null of one that the desktop draws
    QIcon themed;
    QPoint hotSpot;
    std::optional<Qt::CursorShape> shape; // of the desktop
};

// A picture as it lies in a module: a PNG file of up to 1024 pixels a side, or an XPM of up to 256. Null if
// it is neither.
COREKIT_API std::shared_ptr<Icon> iconOfBytes(std::span<const std::byte> bytes);

// A blank cursor and a null icon for a handle that is none.
QCursor toolkitCursor(HCURSOR cursor);
QIcon toolkitIcon(HICON icon);

} // namespace corekit::detail
