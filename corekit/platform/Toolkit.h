// The window toolkit's application object, without which there are no fonts and no windows.
//
// A program that has its own application object need not start another; ToolkitIsRunning() then is
// true from the beginning. The thread that starts the toolkit is the user-interface thread.
#pragma once

#include "corekit/platform/Export.h"

enum class ToolkitDisplay {
    automatic, // the display that the environment names, or offscreen if there is none
    offscreen, // draws into memory only: services that make pictures, tests
};

// Makes the application object, once per process; later calls only answer. False if the toolkit could
// not be started. The object lives until the process ends.
// An explicit QT_QPA_PLATFORM in the environment is obeyed with ToolkitDisplay::automatic.
COREKIT_API bool StartToolkit(ToolkitDisplay display = ToolkitDisplay::automatic);

// True while an application object exists, whoever made it. Operations on fonts fail with
// ERROR_DEV_NOT_EXIST as long as it is false.
COREKIT_API bool ToolkitIsRunning();

// False without a toolkit, and where windows are drawn into memory although the environment does not ask for
// it: nobody sees them, so nothing must wait for an answer.
COREKIT_API bool ToolkitHasDisplay();
