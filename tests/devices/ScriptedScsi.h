// The kernel's end of the pass-through: SG_IO calls on files in a folder of devices are answered by a script,
// those on anything else by the kernel.
#pragma once

#include "tests/support/TempFolder.h"

#include "corekit/platform/DeviceFolders.h"

#include <functional>
#include <scsi/sg.h>

// What a device does with a command: fills in status, sense data, residual count. An errno, 0 for none.
using ScriptedDevice = std::function<int(sg_io_hdr& command)>;

class ScriptedScsi {
public:
    ScriptedScsi();
    ~ScriptedScsi();
    ScriptedScsi(const ScriptedScsi&) = delete;
    ScriptedScsi& operator=(const ScriptedScsi&) = delete;

    // Adds "host:bus:id:lun" with what the kernel shows of it.
    void AddUnit(const std::string& place, int type, const std::string& vendor, const std::string& model,
                 bool isClaimed = false);
    // The device file of the unit, which the script answers for.
    std::string AddFile(const std::string& place, const std::string& name, ScriptedDevice device);

    TempFolder folder;
};
