// Finding and opening SCSI adaptors and devices.
//
//     unsigned long address = 0;
//     int claimed = 0;
//     if (scsiFindDevice(3, "PLAYOUT", "PROMPTER LINK", address, claimed))
//         device.reset(scsiCreateDeviceHandler(address >> 24, address >> 16 & 255, address >> 8 & 255));
//
// The platform's pass-through (CSA_NT, CSD_NT) is used, or the ASPI layer (CSA_Aspi, CSD_Aspi) on a platform
// that has none. Objects belong to the caller; null for what cannot be opened.
#pragma once

#include "corekit/devices/ScsiAdaptor.h"
#include "corekit/devices/ScsiAddress.h"
#include "corekit/devices/ScsiDevice.h"

COREKIT_API CScsiAdaptor* scsiOpenAdaptor(int adaptor);
COREKIT_API CScsiDevice* scsiCreateDeviceHandler(int adaptor, int bus, int id);
// By the device's own file, such as "/dev/sg3".
COREKIT_API CScsiDevice* scsiCreateDeviceHandlerDirect(const char* deviceName);

// Looks through all adaptors for the first device of that type whose vendor and product are exactly these, as
// the adaptor tells them: without blanks at the end from the pass-through, with them from ASPI. 1 with
// `address` (adaptor, bus, id and lun, a byte each from the top) and `claimed`, or 0.
COREKIT_API int scsiFindDevice(int deviceType, const char* vendor, const char* product,
                               unsigned long& address, int& claimed);
