// How binary resources are named by number, and the kinds that this library reads.
//
// The names stand with the platform, which looks pictures up by them.
#pragma once

#include "corekit/platform/Resources.h"
