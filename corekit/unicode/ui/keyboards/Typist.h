// Presses keys on a keyboard and tells what they type: for tools that show a keyboard, and for tests.
//
//     KBT_Hebrew keyboard;
//     Typist typist(keyboard);
//     const Typist::Typed typed = typist.Press({.key = 'T'}); // typed.characters is U+05D0
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Messages.h"

#include <string>

class CKBLayout;

// A key and what is held with it.
struct KeyStroke {
    int key = 0;           // virtual key
    bool shift = false;    // the left one
    bool ctrl = false;     // the left one
    bool alt = false;      // the left one
    bool rightAlt = false; // the one that types accents
};

// Uses the key state of its thread, where it leaves all keys up that it pressed.
class COREKIT_API Typist {
public:
    // The keyboard must outlive it. It has a window of its own without anything to see, to which the
    // keyboard types.
    explicit Typist(CKBLayout& keyboard);

    struct Typed {
        bool consumed;             // else the key was left to the platform
        std::u16string characters; // may be none
    };
    // Presses and releases the key, with what is held, and waits for nothing: characters arrive at once.
    Typed Press(const KeyStroke& stroke);

private:
    CKBLayout& m_keyboard;
    std::u16string m_arrived; // since the key was pressed
    MessageWindow m_window;
};
