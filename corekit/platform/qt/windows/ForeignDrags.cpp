#include "corekit/platform/qt/windows/ForeignDrags.h"

#include "corekit/platform/qt/shell/XStruts.h"
#include "corekit/platform/qt/windows/OfferedMedia.h"
#include "corekit/platform/qt/windows/Window.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QDragEnterEvent>
#include <QWindow>

#include <memory>
#include <type_traits>
#include <utility>

namespace corekit::detail {
namespace {

constexpr char dragSelection[] = "XdndSelection";

// What the source says on its way, which the toolkit keeps to itself.
class Watch final : public QAbstractNativeEventFilter {
public:
    Watch()
        : m_enter(m_desktop.atomOf("XdndEnter")), m_position(m_desktop.atomOf("XdndPosition")),
          m_drop(m_desktop.atomOf("XdndDrop"))
    {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    bool nativeEventFilter(const QByteArray& kind, void* event, qintptr*) override
    {
        const auto& told = *static_cast<const xcb_client_message_event_t*>(event);
        if (kind != "xcb_generic_event_t" || (told.response_type & 0x7F) != XCB_CLIENT_MESSAGE) return false;
        const auto& data = told.data.data32;
        if (told.type == m_enter) {
            const bool hasList = data[1] & 1;
            m_types = hasList ? m_desktop.property(data[0], "XdndTypeList", XCB_ATOM_ATOM)
                              : std::vector<xcb_atom_t>(data + 2, data + 5);
            m_media.reset();
        } else if (told.type == m_position) {
            m_time = data[3];
        } else if (told.type == m_drop) {
            m_time = data[2];
        }
        return false;
    }
    // The same for the whole of a drag.
    const QMimeData& media()
    {
        if (!m_media)
            m_media = std::make_unique<OfferedMedia>(selectionReader().atom(dragSelection), m_types);
        m_media->askAtTime(m_time);
        return *m_media;
    }

private:
    XStruts m_desktop;
    xcb_atom_t m_enter, m_position, m_drop;
    std::vector<xcb_atom_t> m_types;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    std::unique_ptr<OfferedMedia> m_media;
};
constinit Watch* watch = nullptr;

bool isOurs(const QObject* surface)
{
    for (const QWidget* const top : QApplication::topLevelWidgets())
        if (top->windowHandle() == surface) return Window::of(top) != nullptr;
    return false;
}

template <class Event>
void pass(QObject& surface, QEvent* raw)
{
    auto& event = static_cast<Event&>(*raw);
    Event again(event.position().toPoint(), event.possibleActions(), &watch->media(), event.buttons(),
                event.modifiers());
    again.setDropAction(event.dropAction());
    again.setAccepted(event.isAccepted());
    QCoreApplication::sendEvent(&surface, &again);
    event.setDropAction(again.dropAction());
    if constexpr (std::is_base_of_v<QDragMoveEvent, Event>)
        again.isAccepted() ? event.accept(again.answerRect()) : event.ignore(again.answerRect());
    else
        event.setAccepted(again.isAccepted());
}

} // namespace

void watchForeignDrags()
{
    Watch* const next = XStruts().isUsable() ? new Watch : nullptr;
    delete std::exchange(watch, next);
}

bool passForeignDrag(QObject* surface, QEvent* event)
{
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    if (!watch || static_cast<QDropEvent*>(event)->mimeData() == &watch->media()) return false;
    if (!isOurs(surface) || !isHeldByAnotherProgram(dragSelection)) return false;
    if (type == QEvent::DragEnter)
        pass<QDragEnterEvent>(*surface, event);
    else if (type == QEvent::DragMove)
        pass<QDragMoveEvent>(*surface, event);
    else
        pass<QDropEvent>(*surface, event);
    return true;
}

} // namespace corekit::detail
