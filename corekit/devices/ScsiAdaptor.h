// CScsiAdaptor: a SCSI adaptor and what is attached to it.
//
//     std::unique_ptr<CScsiAdaptor> adaptor(scsiOpenAdaptor(0));
//     CScsiDeviceInfo info;
//     if (adaptor && adaptor->GetDeviceInfo(0, 3, 0, info)) std::puts(info.m_vendor);
//
// Nothing here throws; failures are 0 or null. An object belongs to one thread at a time.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

// What a device said of itself.
struct CScsiDeviceInfo {
    int m_type = 0; // 0 disk, 1 tape, 3 processor, 5 CD, ...
    int m_typeModifier = 0;
    int m_removable = 0;
    CString m_vendor;   // up to 8 characters
    CString m_product;  // up to 16
    CString m_revision; // up to 4
    int m_claimed = 0;  // nonzero if a driver has it
};

class COREKIT_API CScsiAdaptor : public CObject {
    DECLARE_DYNAMIC(CScsiAdaptor)
public:
    // By number, from 0. Everything else is for an adaptor that was opened.
    virtual int Open(int adaptor) = 0;
    virtual int GetBusCount() = 0;
    // Bytes that one transfer may have.
    virtual unsigned long GetMaxTransfer() = 0;
    // Ids run from 0 to one below.
    virtual int GetTargetCount(int bus) = 0;
    // 0 if there is no such device.
    virtual int GetDeviceInfo(int bus, int id, int lun, CScsiDeviceInfo& info) = 0;
};
