// CScsiAddress: where a SCSI device is.
#pragma once

#include "corekit/framework/String.h"

// A plain value of four numbers, each 0 at first; nothing checks them.
class COREKIT_API CScsiAddress {
public:
    // "Adaptor=0, bus=0, id=3, lun=1"
    CString MakeAddressString() const;
    // "0.0.3.1"
    CString MakeRawString() const;
    // Reads the raw form. The lun has as many digits as the id has characters; what is longer is cut, so that
    // "0.0.3.15" is lun 1. What is missing is 0.
    void DecodeRawString(const char* text);

    int m_adaptor = 0; // as scsiOpenAdaptor numbers them
    int m_bus = 0;     // of the adaptor
    int m_id = 0;      // of the device on the bus
    int m_lun = 0;     // the unit of the device
};
