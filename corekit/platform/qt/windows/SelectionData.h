// What a program of an X display gives out of a selection, and what it means.
#pragma once

#include "corekit/platform/Export.h"

#include <QByteArray>
#include <QString>

#include <vector>
#include <xcb/xproto.h>

namespace corekit::detail {

struct COREKIT_API SelectionData {
    static constexpr qsizetype most = 64 << 20; // bytes

    xcb_atom_t type = XCB_ATOM_NONE;
    int unitBits = 0; // 8, 16, 32
    QByteArray bytes;

    // Adds what comes next. False if it is of another type, or too much; then nothing is added.
    bool append(const SelectionData& more);
};

// Of a list of atoms, which has the type ATOM, or by mistake that of what was asked for; else nothing.
COREKIT_API std::vector<xcb_atom_t> atomsIn(const SelectionData& data, xcb_atom_t asked);

enum class SelectionEncoding { utf8, latin1 };
// Without the terminator that some programs send.
COREKIT_API QString textIn(const SelectionData& data, SelectionEncoding encoding);

} // namespace corekit::detail
