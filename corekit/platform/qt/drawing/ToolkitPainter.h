// The toolkit's painter on the pixels of a context, within its clip, in its units: for shapes with curves and
// broad pens. Slower to begin with than our own fills.
#pragma once

#include "corekit/platform/qt/drawing/DeviceContext.h"

#include <QImage>
#include <QPainter>

namespace corekit::detail {

// The bitmap's pixels as the toolkit's picture, which shares them. Bottom-up ones stand on their head.
QImage pictureOf(Bitmap& bitmap);

class ToolkitPainter {
public:
    explicit ToolkitPainter(DeviceContext& context);
    QPainter* operator->() { return &m_painter; }

    void useContextPen();
    void useContextBrush();

private:
    DeviceContext& m_context;
    QImage m_picture;
    QPainter m_painter;
};

} // namespace corekit::detail
