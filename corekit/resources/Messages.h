// The numbers of this library's messages, for ThrowChainedException, LoadString and their like. A new one is
// a row of messages.inc.
#pragma once

#include "corekit/platform/Types.h"

namespace message {
enum Number : UINT {
#define MESSAGE(name, number, text) name = number,
#include "corekit/resources/messages.inc"
#undef MESSAGE
};
} // namespace message
