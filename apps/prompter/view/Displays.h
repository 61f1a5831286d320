// The displays of this machine.
#pragma once

#include "model/OutputPlan.h"

namespace prompter {

// Empty without a display. User-interface thread.
std::vector<Display> ListDisplays();

} // namespace prompter
