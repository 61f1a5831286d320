// What a library shows to its callers. Everything else is hidden.
#pragma once

#define COREKIT_API __attribute__((visibility("default")))
