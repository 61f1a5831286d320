#include "corekit/platform/qt/windows/SelectionReader.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <utility>

namespace corekit::detail {
namespace {

using namespace std::chrono_literals;

constexpr auto patienceForTargets = 250ms;
constexpr auto patienceForData = 1s;
constexpr auto longestRead = 10s;
constexpr auto restAfterSilence = 3s;
constexpr std::uint32_t wordsAtOnce = 1 << 16; // of four bytes

template <class T>
using Owned = std::unique_ptr<T, decltype([](T* reply) { std::free(reply); })>;

template <class T>
const T& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const T&>(event);
}

int typeOf(const xcb_generic_event_t& event) { return event.response_type & 0x7F; }

bool tellsEndOf(const xcb_generic_event_t& event, xcb_window_t window)
{
    return typeOf(event) == XCB_DESTROY_NOTIFY && as<xcb_destroy_notify_event_t>(event).window == window;
}

} // namespace

SelectionReader::SelectionReader() : m_connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_connection)) return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_property = atom("COREKIT_SELECTION");
    m_incremental = atom("INCR");
}

xcb_atom_t SelectionReader::atom(const std::string& name)
{
    const auto [found, isNew] = m_atoms.try_emplace(name, xcb_atom_t{XCB_ATOM_NONE});
    if (isNew) {
        const auto asked =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        if (const Owned<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(m_connection, asked, nullptr)})
            found->second = reply->atom;
    }
    return found->second;
}

xcb_window_t SelectionReader::holderOf(xcb_atom_t selection) const
{
    const auto asked = xcb_get_selection_owner(m_connection, selection);
    const Owned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection, asked, nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_NONE};
}

std::vector<xcb_atom_t> SelectionReader::targets(xcb_atom_t selection)
{
    const xcb_atom_t target = atom("TARGETS");
    const auto said = ask(selection, target, XCB_CURRENT_TIME, patienceForTargets);
    return said ? atomsIn(*said, target) : std::vector<xcb_atom_t>();
}

std::optional<SelectionReader::Data> SelectionReader::read(xcb_atom_t selection, xcb_atom_t target,
                                                           xcb_timestamp_t time)
{
    return ask(selection, target, time, patienceForData);
}

// Each question has a window of its own, so that what comes too late for one is no answer to the next. The
// last that went wrong stays for what still comes: a program may end by writing to one that is gone.
std::optional<SelectionReader::Data> SelectionReader::ask(xcb_atom_t selection, xcb_atom_t target,
                                                          xcb_timestamp_t time, Clock::duration patience)
{
    if (xcb_connection_has_error(m_connection)) return {};
    const xcb_window_t holder = holderOf(selection);
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)})
        if (tellsEndOf(*event, m_silent)) m_silent = XCB_NONE; // its number may be another's now
    if (holder == XCB_NONE || (holder == m_silent && Clock::now() < m_restUntil)) return {};
    const auto now = Clock::now();
    Request request{newWindow(), holder, selection, target, patience, now + patience, now + longestRead};
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, holder, XCB_CW_EVENT_MASK, &events);
    xcb_convert_selection(m_connection, request.window, selection, target, m_property, time);
    auto answer = answerTo(request);
    if (request.isGivenUp && !request.isHolderGone) {
        m_silent = holder;
        m_restUntil = Clock::now() + restAfterSilence;
    } else if (holder == m_silent) {
        m_silent = XCB_NONE;
    }
    const xcb_window_t done = answer ? request.window : std::exchange(m_left, request.window);
    if (done != XCB_NONE) xcb_destroy_window(m_connection, done);
    xcb_flush(m_connection);
    return answer;
}

xcb_window_t SelectionReader::newWindow() const
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, 0, window, m_root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return window;
}

std::optional<SelectionReader::Data> SelectionReader::answerTo(Request& request)
{
    bool isGiven = false;
    const bool isAnswered = awaits(request, [&](const xcb_generic_event_t& event) {
        if (typeOf(event) != XCB_SELECTION_NOTIFY) return false;
        const auto& told = as<xcb_selection_notify_event_t>(event);
        isGiven = told.property == m_property;
        return told.requestor == request.window && told.selection == request.selection &&
               told.target == request.target;
    });
    if (!isAnswered || !isGiven) return {};
    auto whole = take(request.window);
    if (whole && whole->type == m_incremental) whole = pieces(request);
    request.isGivenUp |= !whole;
    return whole && whole->type != XCB_ATOM_NONE ? whole : std::nullopt;
}

// Large data come piece by piece: the next is written when the last was deleted, an empty one ends them.
std::optional<SelectionReader::Data> SelectionReader::pieces(Request& request)
{
    const auto isPiece = [&](const xcb_generic_event_t& event) {
        const auto& told = as<xcb_property_notify_event_t>(event);
        return typeOf(event) == XCB_PROPERTY_NOTIFY && told.window == request.window &&
               told.atom == m_property && told.state == XCB_PROPERTY_NEW_VALUE;
    };
    Data whole;
    request.silentAt = Clock::now() + request.patience;
    while (awaits(request, isPiece)) {
        const auto piece = take(request.window);
        if (!piece) return {};
        if (piece->type == XCB_ATOM_NONE) continue; // taken before
        const bool isEnd = piece->bytes.isEmpty();  // of whatever type, if there is one already
        if ((!isEnd || whole.type == XCB_ATOM_NONE) && !whole.append(*piece)) return {};
        if (isEnd) return whole;
        request.silentAt = Clock::now() + request.patience;
    }
    return {};
}

// What stands in the property, which is deleted; without a type if there is none, nothing if it is too long
// or changes while it is read.
std::optional<SelectionReader::Data> SelectionReader::take(xcb_window_t window)
{
    Data data;
    for (std::uint32_t words = 0;; words += wordsAtOnce) {
        const auto asked = xcb_get_property(m_connection, 1, window, m_property, XCB_GET_PROPERTY_TYPE_ANY,
                                            words, wordsAtOnce);
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, asked, nullptr));
        if (!reply) return {};
        const auto* const bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
        const int length = xcb_get_property_value_length(reply.get());
        const Data part{reply->type, reply->format, QByteArray::fromRawData(bytes, length)};
        if (!data.append(part)) return {};
        if (!reply->bytes_after) return data;
    }
}

// Whether an event that is wanted comes while the limits last.
template <class Wanted>
bool SelectionReader::awaits(Request& request, Wanted wanted)
{
    xcb_flush(m_connection);
    while (!xcb_connection_has_error(m_connection)) {
        // What has come counts, however late this program gets to it, but not for ever.
        const auto now = Clock::now();
        if (now < request.endsAt)
            if (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
                if (wanted(*event)) return true;
                request.isHolderGone |= tellsEndOf(*event, request.holder);
                if (request.isHolderGone) return false;
                continue;
            }
        const auto left = std::min(request.silentAt, request.endsAt) - now;
        request.isGivenUp = left <= Clock::duration::zero();
        if (request.isGivenUp) return false;
        pollfd ready{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&ready, 1, static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count()));
    }
    return false;
}

SelectionReader& selectionReader()
{
    static auto* const only = new SelectionReader;
    return *only;
}

} // namespace corekit::detail
