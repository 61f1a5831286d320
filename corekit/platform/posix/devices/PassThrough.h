// One SCSI command to an open device.
#pragma once

#include "corekit/platform/ScsiPorts.h"

namespace corekit::detail {

// Carries the command out and fills in what came of it, sense data included, for which `senseRoom` bytes are
// there. An error number, 0 if the device has answered.
DWORD passThrough(int fd, SCSI_PASS_THROUGH_DIRECT& command, BYTE* sense, DWORD senseRoom);

} // namespace corekit::detail
