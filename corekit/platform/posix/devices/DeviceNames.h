// Device names: what follows "\\.\" in the name of a file to open.
#pragma once

#include "corekit/platform/Types.h"

#include <string_view>

namespace corekit::detail {

// How a device is to be opened, as it was asked for.
struct DeviceUse {
    DWORD access;
    DWORD share;
    DWORD disposition;
    DWORD flags;
};

// The name behind "\\.\"; empty for a name that is none of a device.
std::string_view deviceNameIn(const char* name);
// INVALID_HANDLE_VALUE with the last error; 2 for a device that nobody knows.
HANDLE openDevice(std::string_view name, const DeviceUse& use);

// The number in a name of the form `prefix` NUMBER `suffix`, in any case of letters; -1 for another form.
int numberIn(std::string_view name, std::string_view prefix, std::string_view suffix = {});

// "COM3", and "Scsi0:".
HANDLE openSerialPort(int number, const DeviceUse& use);
HANDLE openScsiPort(int number, const DeviceUse& use);

} // namespace corekit::detail
