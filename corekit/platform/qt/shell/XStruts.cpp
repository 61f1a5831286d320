#include "corekit/platform/qt/shell/XStruts.h"

#include "corekit/platform/AppBars.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace corekit::detail {
namespace {

template <class T>
using Reply = std::unique_ptr<T, decltype([](T* reply) { std::free(reply); })>;

constexpr std::uint32_t longestProperty = 4096; // in units of four bytes

// The order in which the property names the sides.
enum Side { left, right, top, bottom };
constexpr Side sideOf(UINT edge)
{
    constexpr Side sides[] = {left, top, right, bottom};
    return sides[edge & 3];
}

} // namespace

XStruts::XStruts()
{
    const auto* const x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!x11 || !x11->connection()) return;
    m_connection = x11->connection();
    const auto screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    if (screen.rem > 0)
        m_root = screen.data->root;
    else
        m_connection = nullptr;
}

std::uint32_t XStruts::atomOf(const char* name) const
{
    const auto asked = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(m_connection, asked, nullptr));
    return answer ? answer->atom : static_cast<std::uint32_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> XStruts::property(std::uint32_t window, const char* name, std::uint32_t type) const
{
    const auto asked = xcb_get_property(m_connection, 0, window, atomOf(name), type, 0, longestProperty);
    const Reply<xcb_get_property_reply_t> answer(xcb_get_property_reply(m_connection, asked, nullptr));
    if (!answer || answer->format != 32) return {};
    std::vector<std::uint32_t> values(static_cast<std::size_t>(xcb_get_property_value_length(answer.get())) /
                                      4);
    if (!values.empty()) std::memcpy(values.data(), xcb_get_property_value(answer.get()), values.size() * 4);
    return values;
}

void XStruts::hearOfProperties(std::uint32_t window) const
{
    const auto asked = xcb_get_window_attributes(m_connection, window);
    const Reply<xcb_get_window_attributes_reply_t> present(
        xcb_get_window_attributes_reply(m_connection, asked, nullptr));
    if (!present || present->your_event_mask & XCB_EVENT_MASK_PROPERTY_CHANGE) return;
    const std::uint32_t mask = present->your_event_mask | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection);
}

void XStruts::reserve(const QWidget& window, UINT edge, const QRect& strip) const
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const double scale = window.devicePixelRatioF();
    const auto pixels = [scale](int length) {
        return static_cast<std::uint32_t>(std::max(0.0, length * scale));
    };
    std::array<std::uint32_t, 12> values{}; // breadths, then begin and end along each side
    if (!strip.isEmpty() && edge <= ABE_BOTTOM) {
        const Side side = sideOf(edge);
        const bool stands = side == left || side == right;
        values[side] = pixels(side == left    ? strip.x() + strip.width() - screen.x()
                              : side == right ? screen.x() + screen.width() - strip.x()
                              : side == top   ? strip.y() + strip.height() - screen.y()
                                              : screen.y() + screen.height() - strip.y());
        values[4 + 2 * side] = pixels(stands ? strip.top() : strip.left());
        values[5 + 2 * side] = pixels(stands ? strip.bottom() : strip.right());
    }
    const auto id = static_cast<std::uint32_t>(window.winId());
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atomOf("_NET_WM_STRUT"), XCB_ATOM_CARDINAL,
                        32, 4, values.data());
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atomOf("_NET_WM_STRUT_PARTIAL"),
                        XCB_ATOM_CARDINAL, 32, 12, values.data());
    xcb_flush(m_connection);
}

QMargins XStruts::reservedBesides(const QWidget& window) const
{
    std::array<std::uint32_t, 4> most{};
    const auto own = static_cast<std::uint32_t>(window.winId());
    for (const std::uint32_t id : property(m_root, "_NET_CLIENT_LIST", XCB_ATOM_WINDOW)) {
        if (id == own) continue;
        const std::vector<std::uint32_t> strut = property(id, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL);
        for (std::size_t i = 0; i < most.size() && i < strut.size(); ++i)
            most[i] = std::max(most[i], strut[i]);
    }
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const double scale = window.devicePixelRatioF();
    const auto points = [&](Side side, int limit) {
        return static_cast<int>(std::min<double>(most[side] / scale, limit));
    };
    return {points(left, screen.width()), points(top, screen.height()), points(right, screen.width()),
            points(bottom, screen.height())};
}

std::uint32_t XStruts::edgeAtom(UINT edge) const
{
    return atomOf(("_COREKIT_HIDING_BAR_" + std::to_string(edge)).c_str());
}

bool XStruts::takeEdge(const QWidget& window, UINT edge) const
{
    const auto id = static_cast<std::uint32_t>(window.winId());
    const std::uint32_t selection = edgeAtom(edge);
    const auto ownerOf = [&] {
        const auto asked = xcb_get_selection_owner(m_connection, selection);
        const Reply<xcb_get_selection_owner_reply_t> answer(
            xcb_get_selection_owner_reply(m_connection, asked, nullptr));
        return answer ? answer->owner : static_cast<std::uint32_t>(XCB_NONE);
    };
    const std::uint32_t owner = ownerOf();
    if (owner != XCB_NONE && owner != id) return false;
    xcb_set_selection_owner(m_connection, id, selection, XCB_CURRENT_TIME);
    return ownerOf() == id;
}

void XStruts::giveBackEdge(const QWidget& window, UINT edge) const
{
    const auto asked = xcb_get_selection_owner(m_connection, edgeAtom(edge));
    const Reply<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(m_connection, asked, nullptr));
    if (!answer || answer->owner != static_cast<std::uint32_t>(window.winId())) return;
    xcb_set_selection_owner(m_connection, XCB_NONE, edgeAtom(edge), XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

} // namespace corekit::detail
