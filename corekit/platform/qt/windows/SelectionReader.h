// What another program of an X display holds, asked of it on a connection of our own and with limits.
#pragma once

#include "corekit/platform/qt/windows/SelectionData.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace corekit::detail {

// A holder is waited for a quarter of a second where it is asked what it has, and for a second where it gives
// that out. Data that keep coming are taken for ten seconds and up to 64 MiB. One whose data go beyond these
// limits, or change their type on the way, has none, and is not asked again for three seconds. For one
// thread, and for what other programs hold: this one would wait for itself.
class SelectionReader {
public:
    using Data = SelectionData;

    SelectionReader();
    SelectionReader(const SelectionReader&) = delete;
    SelectionReader& operator=(const SelectionReader&) = delete;

    xcb_atom_t atom(const std::string& name);
    // The window that holds it now, XCB_NONE if none does.
    xcb_window_t holderOf(xcb_atom_t selection) const;
    // What it says it has; nothing if it does not say.
    std::vector<xcb_atom_t> targets(xcb_atom_t selection);
    // Some give what they hold only at the time of what made it wanted.
    std::optional<Data> read(xcb_atom_t selection, xcb_atom_t target,
                             xcb_timestamp_t time = XCB_CURRENT_TIME);

private:
    using Clock = std::chrono::steady_clock;
    struct Request {
        xcb_window_t window, holder;
        xcb_atom_t selection, target;
        Clock::duration patience;
        Clock::time_point silentAt, endsAt;
        bool isGivenUp = false, isHolderGone = false;
    };

    std::optional<Data> ask(xcb_atom_t selection, xcb_atom_t target, xcb_timestamp_t time,
                            Clock::duration patience);
    std::optional<Data> answerTo(Request& request);
    std::optional<Data> pieces(Request& request);
    std::optional<Data> take(xcb_window_t window);
    template <class Wanted>
    bool awaits(Request& request, Wanted wanted);
    xcb_window_t newWindow() const;

    xcb_connection_t* m_connection; // until the program ends
    xcb_window_t m_root = XCB_NONE, m_left = XCB_NONE, m_silent = XCB_NONE;
    Clock::time_point m_restUntil;
    std::map<std::string, xcb_atom_t> m_atoms;
    xcb_atom_t m_property = XCB_ATOM_NONE, m_incremental = XCB_ATOM_NONE;
};

// The one of the toolkit's thread.
SelectionReader& selectionReader();

} // namespace corekit::detail
