// A paint of the toolkit that a window is answering.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

#include <QImage>
#include <QRegion>

#include <memory>

class QBackingStore;
class QPaintDevice;
class QPainter;

namespace corekit::detail {

class PaintInHand {
public:
    // The region is in the receiver, which is the window's widget or a part of it.
    PaintInHand(Window& window, QWidget& receiver, const QRegion& region);
    PaintInHand(const PaintInHand&) = delete;
    PaintInHand& operator=(const PaintInHand&) = delete;
    ~PaintInHand();

    static PaintInHand* of(HWND window); // the innermost; null if there is none
    static bool isAny();

    const QRegion& region() const { return m_region; }
    bool isBegun() const { return m_painter != nullptr; }
    HDC dc() const { return m_dc; }
    // A context on the picture that is being painted, with its origin at the client area's; null on failure.
    HDC begin(const QRect& client);
    void end();

private:
    HWND m_window;
    QPointer<QWidget> m_receiver;
    QRegion m_region;
    std::unique_ptr<QPainter> m_painter;
    QImage m_copy; // where the picture cannot be drawn on directly
    QPoint m_copyPlace;
    HDC m_dc = nullptr;
    PaintInHand* m_outer;
};

// What the toolkit shows, null before it has been painted the first time.
QPaintDevice* shownBy(QBackingStore* store);

} // namespace corekit::detail
