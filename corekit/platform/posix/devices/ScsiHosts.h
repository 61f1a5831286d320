// The SCSI hosts of the machine and what is attached to them, from the kernel's own folders.
#pragma once

#include "corekit/platform/Types.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace corekit::detail {

// What a device says of itself: the first bytes of its answer to an inquiry.
using Inquiry = std::array<BYTE, 36>;

struct ScsiUnit {
    unsigned bus, id, lun;
    bool isClaimed; // a driver has it
    Inquiry inquiry;
    DWORD inquirySize; // how much of it there is
};

// The kernel's numbers of the hosts, ascending.
std::vector<unsigned> scsiHosts();
// Ascending; those that an adaptor's structures cannot name are left out.
std::vector<ScsiUnit> scsiUnits(unsigned host);
// The most bytes and scattered pieces of one transfer.
struct ScsiLimits {
    DWORD bytes, pieces;
};
ScsiLimits scsiLimits(unsigned host);
// The device file through which commands reach a unit; empty for none.
std::string scsiDevice(unsigned host, unsigned bus, unsigned id, unsigned lun);

} // namespace corekit::detail
