// The keyboard of an X server: what its groups are called and which is in force.
#pragma once

#include "corekit/platform/Types.h"

#include <memory>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace corekit::detail {

// A connection of its own to the display that the environment names. One thread.
class XKeyboard {
public:
    // Null if there is no display or its server has no keyboard groups.
    static std::unique_ptr<XKeyboard> connect();
    bool isConnected() const;

    // A group as the server was told to make it: "in" and "ben" for Bangla of India.
    struct Group {
        std::string layout, variant;
    };
    // Empty if nobody told, or the server has gone.
    std::vector<Group> groups() const;
    // From 0; 0 too if the server has gone.
    unsigned activeGroup() const;
    void lockGroup(unsigned group) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    DWORD m_root = 0;
    DWORD m_rulesAtom = 0;
};

// The language that a group types, that of the process where it is not known.
LANGID languageOfGroup(const XKeyboard::Group& group);

} // namespace corekit::detail
