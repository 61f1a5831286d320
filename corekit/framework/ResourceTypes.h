// How binary resources are named by number, and the kinds that this library reads.
#pragma once

#include "corekit/platform/Resources.h"
