// Another program that holds the clipboard and what is selected and dragged, in a manner of its own.
#pragma once

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

// What it does when it is asked for the text that it offers.
enum class Manner { hangs, diesInTheMidst, sendsSteadily, sendsNumbers, changesType, neverEnds };

class ClipboardHolder {
public:
    static constexpr int pieces = 48, pieceSize = 64 << 10;
    static constexpr xcb_timestamp_t dropTime = 4711; // at which alone it gives what is dragged

    // To be made before there are threads; it waits for Begin.
    explicit ClipboardHolder(Manner manner) : m_manner(manner)
    {
        if (pipe(m_begin) != 0 || pipe(m_begun) != 0) std::abort();
        m_process = fork();
        if (m_process != 0) return;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        char c = 0;
        if (read(m_begin[0], &c, 1) == 1) Hold();
        _exit(0);
    }
    ~ClipboardHolder()
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        for (const int end : {m_begin[0], m_begin[1], m_begun[0], m_begun[1]}) close(end);
    }
    ClipboardHolder(const ClipboardHolder&) = delete;
    ClipboardHolder& operator=(const ClipboardHolder&) = delete;

    // True once it holds the clipboard.
    bool Begin()
    {
        char c = 0;
        return write(m_begin[1], &c, 1) == 1 && read(m_begun[0], &c, 1) == 1;
    }

    static xcb_atom_t Atom(xcb_connection_t* x, std::string_view name)
    {
        const auto asked = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data());
        xcb_intern_atom_reply_t* const reply = xcb_intern_atom_reply(x, asked, nullptr);
        const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        free(reply);
        return atom;
    }

private:
    void Hold()
    {
        m_x = xcb_connect(nullptr, nullptr);
        if (xcb_connection_has_error(m_x)) return;
        const xcb_window_t window = xcb_generate_id(m_x);
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_x)).data->root;
        xcb_create_window(m_x, 0, window, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
        m_utf8 = Atom(m_x, "UTF8_STRING");
        m_targets = Atom(m_x, "TARGETS");
        m_incr = Atom(m_x, "INCR");
        m_dragged = Atom(m_x, "XdndSelection");
        for (const xcb_atom_t held : {Atom(m_x, "CLIPBOARD"), xcb_atom_t{XCB_ATOM_PRIMARY}, m_dragged})
            xcb_set_selection_owner(m_x, window, held, XCB_CURRENT_TIME);
        Atom(m_x, "CLIPBOARD"); // the server has done it
        const char c = 0;
        if (write(m_begun[1], &c, 1) != 1) return;
        while (xcb_generic_event_t* const event = xcb_wait_for_event(m_x)) {
            const int type = event->response_type & 0x7F;
            if (type == XCB_SELECTION_REQUEST)
                Answer(*reinterpret_cast<xcb_selection_request_event_t*>(event));
            else if (type == XCB_PROPERTY_NOTIFY)
                Continue(*reinterpret_cast<xcb_property_notify_event_t*>(event));
            free(event);
        }
    }

    void Answer(const xcb_selection_request_event_t& asked)
    {
        const bool isRefused = asked.selection == m_dragged && asked.time != dropTime;
        if (isRefused) {
        } else if (asked.target == m_targets) {
            const xcb_atom_t all[] = {m_targets, m_utf8};
            Put(asked.requestor, asked.property, XCB_ATOM_ATOM, 32, 2, all);
        } else if (m_manner == Manner::hangs) {
            pause();
        } else if (m_manner == Manner::sendsNumbers) {
            const std::uint32_t numbers[] = {0x41414141, 0x42424242};
            Put(asked.requestor, asked.property, XCB_ATOM_INTEGER, 32, 2, numbers);
        } else {
            const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
            xcb_change_window_attributes(m_x, asked.requestor, XCB_CW_EVENT_MASK, &events);
            const std::uint32_t least = 1;
            Put(asked.requestor, asked.property, m_incr, 32, 1, &least);
            m_sent = 0;
        }
        xcb_selection_notify_event_t told{};
        told.response_type = XCB_SELECTION_NOTIFY;
        told.requestor = asked.requestor;
        told.selection = asked.selection;
        told.target = asked.target;
        told.property = isRefused ? xcb_atom_t{XCB_ATOM_NONE} : asked.property;
        xcb_send_event(m_x, 0, asked.requestor, 0, reinterpret_cast<const char*>(&told));
        xcb_flush(m_x);
    }

    // The next piece, once the last was taken.
    void Continue(const xcb_property_notify_event_t& event)
    {
        if (event.state != XCB_PROPERTY_DELETE || m_sent > pieces) return;
        if (m_manner == Manner::diesInTheMidst && m_sent == 3) _exit(0);
        if (m_manner == Manner::sendsSteadily) usleep(25000);
        const bool isOther = m_manner == Manner::changesType && m_sent == 2;
        const bool isLast = m_sent == pieces && m_manner != Manner::neverEnds;
        static const std::string piece(pieceSize, 'x');
        Put(event.window, event.atom, isOther ? xcb_atom_t{XCB_ATOM_STRING} : m_utf8, 8,
            isLast ? 0 : pieceSize, piece.data());
        xcb_flush(m_x);
        if (m_manner != Manner::neverEnds) ++m_sent;
    }

    void Put(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, std::uint8_t bits,
             std::uint32_t count, const void* data)
    {
        xcb_change_property(m_x, XCB_PROP_MODE_REPLACE, window, property, type, bits, count, data);
    }

    Manner m_manner;
    pid_t m_process = -1;
    int m_begin[2], m_begun[2];
    xcb_connection_t* m_x = nullptr;
    xcb_atom_t m_utf8 = 0, m_targets = 0, m_incr = 0, m_dragged = 0;
    int m_sent = pieces + 1; // none under way
};
