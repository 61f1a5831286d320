#include "corekit/platform/qt/windows/ClipboardOwner.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <poll.h>
#include <xcb/xcb.h>

namespace corekit::detail {
namespace {

constexpr int patience = 250; // milliseconds
constexpr std::chrono::seconds restAfterSilence{3};

template <class T>
using Owned = std::unique_ptr<T, decltype([](T* reply) { std::free(reply); })>;

// A connection of its own: what waits for the toolkit's is left alone.
class Asker {
public:
    Asker() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection)) return;
        const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_window = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, 0, m_window, screen.root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          screen.root_visual, 0, nullptr);
        m_targets = atomOf("TARGETS");
        m_clipboard = atomOf("CLIPBOARD");
    }

    bool answers(QClipboard::Mode mode)
    {
        if (m_window == XCB_NONE || xcb_connection_has_error(m_connection)) return true;
        const xcb_atom_t selection =
            mode == QClipboard::Clipboard ? m_clipboard : xcb_atom_t{XCB_ATOM_PRIMARY};
        const xcb_window_t owner = ownerOf(selection);
        if (owner == XCB_NONE) return true;
        if (owner == m_silent && std::chrono::steady_clock::now() < m_restUntil) return false;
        xcb_convert_selection(m_connection, m_window, selection, m_targets, m_targets, XCB_CURRENT_TIME);
        xcb_flush(m_connection);
        const bool hasAnswered = hears(selection);
        m_silent = hasAnswered ? XCB_NONE : owner;
        m_restUntil = std::chrono::steady_clock::now() + restAfterSilence;
        return hasAnswered;
    }

private:
    xcb_atom_t atomOf(const char* name) const
    {
        const auto asked =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, asked, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    xcb_window_t ownerOf(xcb_atom_t selection) const
    {
        const auto asked = xcb_get_selection_owner(m_connection, selection);
        const Owned<xcb_get_selection_owner_reply_t> reply(
            xcb_get_selection_owner_reply(m_connection, asked, nullptr));
        return reply ? reply->owner : xcb_window_t{XCB_NONE};
    }

    bool hears(xcb_atom_t selection)
    {
        for (const QDeadlineTimer end(patience);;) {
            while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
                const auto* const told = reinterpret_cast<const xcb_selection_notify_event_t*>(event.get());
                if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY || told->selection != selection)
                    continue;
                xcb_delete_property(m_connection, m_window, m_targets);
                return true;
            }
            pollfd ready{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            if (end.hasExpired() || poll(&ready, 1, static_cast<int>(end.remainingTime())) <= 0) return false;
            if (xcb_connection_has_error(m_connection)) return false;
        }
    }

    xcb_connection_t* m_connection; // until the program ends
    xcb_window_t m_window = XCB_NONE, m_silent = XCB_NONE;
    xcb_atom_t m_targets = XCB_ATOM_NONE, m_clipboard = XCB_ATOM_NONE;
    std::chrono::steady_clock::time_point m_restUntil;
};

} // namespace

bool clipboardAnswers(QClipboard::Mode mode)
{
    if (!qGuiApp || !qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) return true;
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    if (mode == QClipboard::Clipboard ? clipboard.ownsClipboard() : clipboard.ownsSelection()) return true;
    static auto* const asker = new Asker;
    return asker->answers(mode);
}

bool asksSilentClipboard(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
        return static_cast<const QKeyEvent&>(event).matches(QKeySequence::Paste) && !clipboardAnswers();
    case QEvent::MouseButtonRelease:
        return static_cast<const QMouseEvent&>(event).button() == Qt::MiddleButton &&
               !clipboardAnswers(QClipboard::Selection);
    case QEvent::ContextMenu:
        return !clipboardAnswers();
    default:
        return false;
    }
}

} // namespace corekit::detail
