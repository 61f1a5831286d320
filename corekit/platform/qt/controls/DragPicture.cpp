// The picture that follows the pointer while something is dragged.
#include "corekit/platform/ImageLists.h"
#include "corekit/platform/qt/controls/ImageListObject.h"
#include "corekit/platform/Windows.h"

#include <QPainter>
#include <QWidget>

#include <memory>

using namespace corekit::detail;

namespace {

class DragPicture final : public QWidget {
public:
    DragPicture(const QImage& picture, QPoint hotSpot)
        : QWidget(nullptr, Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus),
          m_picture(picture), m_hotSpot(hotSpot)
    {
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setWindowOpacity(0.75);
        resize(picture.size());
    }
    void setCursorImage(const QImage& image, QPoint hotSpot)
    {
        m_cursor = image;
        m_cursorPlace = m_hotSpot - hotSpot;
        update();
    }
    void follow(QPoint onScreen) { move(onScreen - m_hotSpot); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.drawImage(0, 0, m_picture);
        if (!m_cursor.isNull()) painter.drawImage(m_cursorPlace, m_cursor);
    }

private:
    QImage m_picture, m_cursor;
    QPoint m_hotSpot, m_cursorPlace;
};

struct Drag {
    std::unique_ptr<DragPicture> picture;
    HWND lock = nullptr;
    bool entered = false;
};
constinit Drag drag;

const QImage* pictureAt(HIMAGELIST handle, int index)
{
    const auto list = ImageLists::Find(handle);
    return list && list->has(index) ? &list->pictures[static_cast<std::size_t>(index)] : nullptr;
}

} // namespace

BOOL ImageList_BeginDrag(HIMAGELIST list, int index, int hotX, int hotY)
{
    const QImage* const picture = pictureAt(list, index);
    if (!picture || drag.picture) return FALSE;
    drag.picture = std::make_unique<DragPicture>(*picture, QPoint(hotX, hotY));
    return TRUE;
}

void ImageList_EndDrag() { drag = {}; }

BOOL ImageList_DragEnter(HWND lock, int x, int y)
{
    if (!drag.picture) return FALSE;
    drag.lock = lock;
    drag.entered = true;
    ImageList_DragMove(x, y);
    drag.picture->show();
    return TRUE;
}

BOOL ImageList_DragMove(int x, int y)
{
    if (!drag.picture || !drag.entered) return FALSE;
    POINT point{x, y};
    if (drag.lock) ClientToScreen(drag.lock, &point);
    drag.picture->follow({point.x, point.y});
    return TRUE;
}

BOOL ImageList_DragShowNolock(BOOL show)
{
    if (!drag.picture) return FALSE;
    drag.picture->setVisible(show && drag.entered);
    return TRUE;
}

BOOL ImageList_DragLeave(HWND)
{
    if (!drag.picture) return FALSE;
    drag.entered = false;
    drag.picture->hide();
    return TRUE;
}

BOOL ImageList_SetDragCursorImage(HIMAGELIST list, int index, int hotX, int hotY)
{
    const QImage* const picture = pictureAt(list, index);
    if (!picture || !drag.picture) return FALSE;
    drag.picture->setCursorImage(*picture, {hotX, hotY});
    return TRUE;
}
