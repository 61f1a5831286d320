// The half of a drag from another program that moves the pointer; a ClipboardHolder has the data.
#pragma once

#include "Becomes.h"
#include "ClipboardHolder.h"

#include <array>
#include <cstdint>
#include <xcb/xcb.h>

class DragSource {
public:
    explicit DragSource(xcb_window_t target) : m_target(target)
    {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_x)).data->root;
        xcb_create_window(m_x, 0, m_window, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
    }
    ~DragSource() { xcb_disconnect(m_x); }
    DragSource(const DragSource&) = delete;
    DragSource& operator=(const DragSource&) = delete;

    // Comes with data of that type to a place on the screen, lets go there, and waits until the target is
    // done.
    bool Drop(const char* type, int x, int y)
    {
        constexpr std::uint32_t version = 5u << 24;
        const auto place = static_cast<std::uint32_t>(x << 16 | y);
        const xcb_atom_t copy = Atom("XdndActionCopy");
        Send("XdndEnter", {m_window, version, Atom(type), 0, 0});
        Send("XdndPosition", {m_window, 0, place, ClipboardHolder::dropTime, copy});
        Send("XdndDrop", {m_window, 0, ClipboardHolder::dropTime, 0, 0});
        return Becomes([this] {
            bool isDone = false;
            while (xcb_generic_event_t* const event = xcb_poll_for_event(m_x)) {
                isDone |= reinterpret_cast<xcb_client_message_event_t*>(event)->type == Atom("XdndFinished");
                free(event);
            }
            return isDone;
        });
    }

private:
    xcb_atom_t Atom(const char* name) const { return ClipboardHolder::Atom(m_x, name); }
    void Send(const char* type, const std::array<std::uint32_t, 5>& data) const
    {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_target;
        message.type = Atom(type);
        std::copy(data.begin(), data.end(), message.data.data32);
        xcb_send_event(m_x, 0, m_target, 0, reinterpret_cast<const char*>(&message));
        xcb_flush(m_x);
    }

    xcb_connection_t* const m_x = xcb_connect(nullptr, nullptr);
    const xcb_window_t m_target, m_window = xcb_generate_id(m_x);
};
