#include "corekit/platform/qt/display/XKeyboard.h"

#include "corekit/platform/qt/display/XcbXkb.h"

#include <cstdlib>
#include <string_view>

namespace corekit::detail {
namespace {

constexpr std::string_view rulesProperty = "_XKB_RULES_NAMES";
constexpr DWORD longestRules = 1024; // in units of four bytes
constexpr std::size_t greatestGroups = 4;

// What a reply of the server lies in.
template <class T>
using Reply = std::unique_ptr<T, decltype([](T* reply) { std::free(reply); })>;

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == text.npos) return parts;
        text.remove_prefix(end + 1);
    }
}

xcb_window_t rootOf(xcb_connection_t* connection, int screen)
{
    auto at = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; at.rem > 0 && screen > 0; --screen) xcb_screen_next(&at);
    return at.rem > 0 ? at.data->root : XCB_NONE;
}

bool hasGroups(xcb_connection_t* connection)
{
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (!extension || !extension->present) return false; // asking it for more would end the connection
    const auto asked = xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const Reply<xcb_xkb_use_extension_reply_t> answer(
        xcb_xkb_use_extension_reply(connection, asked, nullptr));
    return answer && answer->supported;
}

DWORD atomOf(xcb_connection_t* connection, std::string_view name)
{
    const auto asked = xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(connection, asked, nullptr));
    return answer ? answer->atom : XCB_NONE;
}

} // namespace

void XKeyboard::Disconnect::operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }

std::unique_ptr<XKeyboard> XKeyboard::connect()
{
    int screen = 0;
    auto keyboard = std::make_unique<XKeyboard>();
    keyboard->m_connection.reset(xcb_connect(nullptr, &screen));
    xcb_connection_t* const connection = keyboard->m_connection.get();
    if (xcb_connection_has_error(connection) || !hasGroups(connection)) return nullptr;
    keyboard->m_root = rootOf(connection, screen);
    keyboard->m_rulesAtom = atomOf(connection, rulesProperty);
    return keyboard;
}

bool XKeyboard::isConnected() const
{
    std::free(xcb_poll_for_event(m_connection.get())); // reads, and so notices that the server has gone
    return !xcb_connection_has_error(m_connection.get());
}

// The property holds five texts, each with its zero: rules, model, layouts, variants, options.
std::vector<XKeyboard::Group> XKeyboard::groups() const
{
    const auto asked =
        xcb_get_property(m_connection.get(), 0, m_root, m_rulesAtom, XCB_ATOM_STRING, 0, longestRules);
    const Reply<xcb_get_property_reply_t> answer(xcb_get_property_reply(m_connection.get(), asked, nullptr));
    if (!answer || answer->format != 8) return {};
    const std::string_view all(static_cast<const char*>(xcb_get_property_value(answer.get())),
                               static_cast<std::size_t>(xcb_get_property_value_length(answer.get())));
    const auto texts = split(all, '\0');
    if (texts.size() < 3 || texts[2].empty()) return {};
    const auto layouts = split(texts[2], ',');
    const auto variants = texts.size() > 3 ? split(texts[3], ',') : std::vector<std::string_view>();
    std::vector<Group> groups;
    for (std::size_t i = 0; i < layouts.size() && i < greatestGroups; ++i)
        groups.push_back({std::string(layouts[i]), std::string(i < variants.size() ? variants[i] : "")});
    return groups;
}

unsigned XKeyboard::activeGroup() const
{
    const auto asked = xcb_xkb_get_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD);
    const Reply<xcb_xkb_get_state_reply_t> answer(
        xcb_xkb_get_state_reply(m_connection.get(), asked, nullptr));
    return answer ? answer->group : 0;
}

void XKeyboard::lockGroup(unsigned group) const
{
    constexpr std::uint8_t nothing = 0;
    xcb_xkb_latch_lock_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, nothing, nothing, 1,
                             static_cast<std::uint8_t>(group), nothing, 0, 0);
    xcb_flush(m_connection.get());
}

} // namespace corekit::detail
