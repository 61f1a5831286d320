// Why a call on a socket failed, as a number of Sockets.h.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

// The last error for an errno after a call on a socket, and SOCKET_ERROR.
DWORD socketErrorFromErrno(int value);
int failSocket(int value);

} // namespace corekit::detail
