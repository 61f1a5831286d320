// The object behind HICON and HCURSOR, and what the toolkit takes in its place.
#pragma once

#include "corekit/platform/Cursors.h"
#include "corekit/platform/qt/drawing/GdiObjects.h"

#include <optional>
#include <QCursor>
#include <QIcon>
#include <QImage>

namespace corekit::detail {

struct Icon final : GdiObject {
    static constexpr GdiKind kindOf = GdiKind::icon;
    Icon() : GdiObject(GdiKind::icon) {}

    QSize size() const;
    QImage at(QSize size, double scale) const; // in units

    QImage picture; // null of one that the desktop draws
    QIcon themed;
    QPoint hotSpot;
    std::optional<Qt::CursorShape> shape; // of the desktop
};

// A blank cursor and a null icon for a handle that is none.
QCursor toolkitCursor(HCURSOR cursor);
QIcon toolkitIcon(HICON icon);

} // namespace corekit::detail
