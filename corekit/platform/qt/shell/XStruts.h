// Strips of the screen on an X11 desktop: those of our windows, those of others, and who hides on an edge.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdint>
#include <QMargins>
#include <QRect>
#include <QWidget>
#include <vector>

struct xcb_connection_t;

namespace corekit::detail {

class XStruts {
public:
    // Of the toolkit's connection; not usable on another platform.
    XStruts();
    bool isUsable() const { return m_connection != nullptr; }

    // The window's strip along an edge (ABE_); an empty one gives it back.
    void reserve(const QWidget& window, UINT edge, const QRect& strip) const;
    // How far the windows of others reach into the screen.
    QMargins reservedBesides(const QWidget& window) const;
    // Makes the window the owner of the edge, unless another window is; or gives the edge back.
    bool takeEdge(const QWidget& window, UINT edge) const;
    void giveBackEdge(const QWidget& window, UINT edge) const;

    std::uint32_t root() const { return m_root; }
    std::uint32_t atomOf(const char* name) const;
    std::vector<std::uint32_t> property(std::uint32_t window, const char* name, std::uint32_t type) const;
    // From here on the toolkit's connection is told when a property of the window changes.
    void hearOfProperties(std::uint32_t window) const;

private:
    std::uint32_t edgeAtom(UINT edge) const;

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_root = 0;
};

} // namespace corekit::detail
