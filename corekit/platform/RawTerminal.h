// The keys that a person presses on the terminal, as they come.
#pragma once

#include "corekit/platform/Export.h"

#include <memory>

// Standard input, byte by byte and without echo, while this lives; not even Ctrl-C does anything else then.
// One at a time. The destructor puts the terminal back.
class COREKIT_API RawTerminal {
public:
    // Whether standard input is a terminal.
    static bool IsThere();

    // Throws std::runtime_error if it is none.
    RawTerminal();
    ~RawTerminal();
    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

    static constexpr int forever = -1;
    // The next byte; -1 when none has come after so many milliseconds, and at the end of input.
    int ReadByte(int milliseconds);

private:
    struct Settings;
    std::unique_ptr<Settings> m_before;
};
