// The commands of the prompter by name, and their keys as the user has changed them: three tables of the
// command list, for the desk, the prompt view, and the buttons of a hand controller. User-interface thread.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/stores/PropertyStore.h"

class CWnd;

namespace prompter {

// Puts commands, default keys and texts into the command list and the program's resources; a second call
// changes nothing.
void RegisterCommands();

// The user's keys take the place of those before.
void TakeKeys(CPropertyStore keys);
// The user's keys as they differ from the default ones.
CPropertyStore DifferingKeys();

// What a button of the hand controller does, 0 for nothing.
UINT CommandOfButton(int button);
// The name of the first key that a command has in a table, empty without one.
CString KeyNameOf(UINT table, UINT command);

} // namespace prompter
