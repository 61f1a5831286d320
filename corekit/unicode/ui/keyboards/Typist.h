// Presses keys on a keyboard and tells what they type: for tools that show a keyboard, and for tests.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Messages.h"

#include <string>

class CKBLayout;

// A key and what is held with it.
struct KeyStroke {
    int key = 0; // virtual key
    bool shift = false;
    bool ctrl = false;
    bool alt = false;      // the left one
    bool rightAlt = false; // the one that types accents
};

// Uses the key state of its thread, where it leaves all keys up that it pressed.
class COREKIT_API Typist {
public:
    // The keyboard must outlive it.
    explicit Typist(CKBLayout& keyboard);

    struct Typed {
        bool consumed;             // else the key was left to the platform
        std::u16string characters; // may be none
    };
    Typed Press(const KeyStroke& stroke);

private:
    CKBLayout& m_keyboard;
    std::u16string m_arrived;
    MessageWindow m_window;
};
