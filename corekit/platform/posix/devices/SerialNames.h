// Which device a serial port's number stands for.
#pragma once

#include <string>
#include <string_view>

namespace corekit::detail {

// The number of a device by its name, "ttyUSB0" or "COM5"; 0 for one that has none.
int serialNumberOf(std::string_view deviceName);
// The device file of a port: one of its own name, else the one that the number stands for. Empty for none.
std::string serialDeviceOf(int number);

} // namespace corekit::detail
