// The terminal that a program is run from, if it is.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

enum class StandardStream { Output = 1, Error = 2 };

// The width in characters of the terminal that the stream is shown on; 0 when it goes to a file or a pipe.
COREKIT_API int TerminalColumns(StandardStream stream);

// Bits of a colour; all together are white.
inline constexpr WORD FOREGROUND_BLUE = 1, FOREGROUND_GREEN = 2, FOREGROUND_RED = 4, FOREGROUND_INTENSITY = 8;

// Writes to standard output, behind what the program has printed so far, and does not wait for more. On a
// terminal the text has that colour and what follows has not, 0 is the terminal's own, and control characters
// in it are shown in writing (\x1B). Elsewhere the text is plain.
COREKIT_API void WriteConsoleText(const char* text, WORD colour = 0);
// The title of the terminal's window; nothing happens without a terminal.
COREKIT_API void SetConsoleTitleA(const char* title);

inline constexpr DWORD CTRL_C_EVENT = 0;     // SIGINT
inline constexpr DWORD CTRL_BREAK_EVENT = 1; // SIGQUIT
inline constexpr DWORD CTRL_CLOSE_EVENT = 2; // SIGTERM, and SIGHUP unless the program ignores it
using PHANDLER_ROUTINE = BOOL (*)(DWORD event);
// Adds a handler, or takes it away. An event goes to the handlers, the newest first, until one of them gives
// nonzero; if none does, it ends the process. They are called on a thread that is there for them alone. 0 for
// a null handler and for one that is to go and is not there.
COREKIT_API BOOL SetConsoleCtrlHandler(PHANDLER_ROUTINE handler, BOOL add);
