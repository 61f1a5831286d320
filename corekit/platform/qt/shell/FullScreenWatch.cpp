#include "corekit/platform/qt/shell/FullScreenWatch.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>
#include <xcb/xcb.h>

namespace corekit::detail {

FullScreenWatch::FullScreenWatch(std::function<void(bool)> tell)
    : m_tell(std::move(tell)), m_state(m_desktop.atomOf("_NET_WM_STATE")),
      m_clients(m_desktop.atomOf("_NET_CLIENT_LIST"))
{
    m_desktop.hearOfProperties(m_desktop.root());
    QCoreApplication::instance()->installNativeEventFilter(this);
    look();
}

FullScreenWatch::~FullScreenWatch()
{
    if (auto* const application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
}

bool FullScreenWatch::nativeEventFilter(const QByteArray& kind, void* event, qintptr*)
{
    const auto* const told = static_cast<const xcb_property_notify_event_t*>(event);
    if (kind != "xcb_generic_event_t" || (told->response_type & 0x7F) != XCB_PROPERTY_NOTIFY) return false;
    if (told->atom == m_state || (told->window == m_desktop.root() && told->atom == m_clients)) look();
    return false;
}

void FullScreenWatch::look()
{
    const std::uint32_t covers = m_desktop.atomOf("_NET_WM_STATE_FULLSCREEN"),
                        hidden = m_desktop.atomOf("_NET_WM_STATE_HIDDEN");
    std::vector<std::uint32_t> clients =
        m_desktop.property(m_desktop.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
    bool isOpen = false;
    for (const std::uint32_t client : clients) {
        if (std::ranges::find(m_watched, client) == m_watched.end()) m_desktop.hearOfProperties(client);
        const auto states = m_desktop.property(client, "_NET_WM_STATE", XCB_ATOM_ATOM);
        const auto has = [&states](std::uint32_t state) {
            return std::ranges::find(states, state) != states.end();
        };
        isOpen = isOpen || (has(covers) && !has(hidden));
    }
    m_watched = std::move(clients);
    if (std::exchange(m_isOpen, isOpen) != isOpen) m_tell(isOpen);
}

} // namespace corekit::detail
