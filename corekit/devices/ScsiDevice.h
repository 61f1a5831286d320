// CScsiDevice: a SCSI device that takes and gives blocks of data by the plain "send" and "receive" commands.
//
// A transfer goes straight from and to the caller's buffer and is not split: at most GetMaxTransfer of the
// adaptor, below 16 MiB in any case. Nothing here throws; failures are 0. An object belongs to one thread at
// a time.
#pragma once

#include "corekit/framework/Object.h"

class COREKIT_API CScsiDevice : public CObject {
    DECLARE_DYNAMIC(CScsiDevice)
public:
    // Where the device is; adaptor, bus and id count from 0.
    virtual int Open(int adaptor, int bus, int id) = 0;
    // Sends `size` bytes to a unit of the device, and waits until it has taken them.
    virtual int Write(int lun, void* data, unsigned long size) = 0;
    // Asks for `size` bytes; a device that has fewer fills less of the buffer.
    virtual int Read(int lun, void* data, unsigned long size) = 0;
};

namespace corekit::detail {
inline constexpr int transferCommandSize = 6;
inline constexpr unsigned char receiveCommand = 0x08, sendCommand = 0x0A;
inline constexpr unsigned long largestTransfer = 0xFFFFFF;

// Whether a command can name that unit: each number has a byte, and cut to it would be another one.
constexpr bool namesUnit(int busOrAdaptor, int id, int lun)
{
    return ((busOrAdaptor | id | lun) & ~0xFF) == 0;
}

// The six bytes of a command that moves `size` bytes.
COREKIT_API void makeTransferCommand(unsigned char command, unsigned long size, unsigned char* cdb);
} // namespace corekit::detail
