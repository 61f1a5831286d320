// Where the machine's devices are looked for.
#pragma once

#include "corekit/platform/Export.h"

#include <string>

// Other folders than these stand for another machine, as tests need it.
struct DeviceFolders {
    std::string devices = "/dev"; // the device files
    std::string system = "/sys";  // what the kernel tells of them
};

// For ports and devices that are listed or opened from now on. Any thread.
COREKIT_API void SetDeviceFolders(const DeviceFolders& folders);
COREKIT_API DeviceFolders GetDeviceFolders();
