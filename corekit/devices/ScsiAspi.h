// SCSI through an ASPI layer: the library "wnaspi32.dll", which is looked for where the system looks for
// libraries and stays loaded for the life of the process. It answers on a thread of its own and sets an
// event. See Scsi.h.
#pragma once

#include "corekit/devices/ScsiAdaptor.h"
#include "corekit/devices/ScsiDevice.h"
#include "corekit/platform/Types.h"

class COREKIT_API CSA_Aspi : public CScsiAdaptor {
    DECLARE_DYNAMIC(CSA_Aspi)
public:
    CSA_Aspi() = default;
    CSA_Aspi(const CSA_Aspi&) = delete;
    CSA_Aspi& operator=(const CSA_Aspi&) = delete;
    ~CSA_Aspi() override;

    int Open(int adaptor) override;
    int GetBusCount() override { return 1; }
    unsigned long GetMaxTransfer() override { return m_maxTransfer; }
    int GetTargetCount(int) override { return m_targetCount; }
    // Texts keep their blanks. `bus` is not used.
    int GetDeviceInfo(int bus, int id, int lun, CScsiDeviceInfo& info) override;

private:
    int m_adaptor = 0;
    unsigned long m_maxTransfer = 0;
    int m_targetCount = 0;
    unsigned long m_alignmentMask = 0;
    HANDLE m_event = nullptr;
};

class COREKIT_API CSD_Aspi : public CScsiDevice {
    DECLARE_DYNAMIC(CSD_Aspi)
public:
    CSD_Aspi() = default;
    CSD_Aspi(const CSD_Aspi&) = delete;
    CSD_Aspi& operator=(const CSD_Aspi&) = delete;
    ~CSD_Aspi() override;

    // Always succeeds. `bus` is not used.
    int Open(int adaptor, int bus, int id) override;
    // The buffer must meet the adaptor's alignment.
    int Write(int lun, void* data, unsigned long size) override;
    int Read(int lun, void* data, unsigned long size) override;

private:
    int Transfer(unsigned char command, BYTE direction, int lun, void* data, unsigned long size);

    int m_adaptor = 0;
    int m_id = 0;
    HANDLE m_event = nullptr;
};
