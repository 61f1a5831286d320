// SCSI through an ASPI layer: the library "wnaspi32.dll", which is looked for where the system looks for
// libraries and stays loaded for the life of the process. It answers on a thread of its own and sets an
// event. See Scsi.h.
#pragma once

#include "corekit/devices/ScsiAdaptor.h"
#include "corekit/devices/ScsiDevice.h"
#include "corekit/platform/Types.h"

// An adaptor by way of the layer. Commands wait for as long as the device takes. One thread at a time.
class COREKIT_API CSA_Aspi : public CScsiAdaptor {
    DECLARE_DYNAMIC(CSA_Aspi)
public:
    CSA_Aspi() = default;
    CSA_Aspi(const CSA_Aspi&) = delete;
    CSA_Aspi& operator=(const CSA_Aspi&) = delete;
    ~CSA_Aspi() override; // the layer stays loaded

    // 0 if the layer cannot be loaded, has no such adaptor or does not answer.
    int Open(int adaptor) override;

    int GetBusCount() override { return 1; }                          // the layer knows no more
    unsigned long GetMaxTransfer() override { return m_maxTransfer; } // as the adaptor says; 0 before Open
    int GetTargetCount(int) override { return m_targetCount; }        // 8 where the adaptor does not say
    // Sends the device an inquiry and waits for its answer. Texts keep their blanks, and nothing is
    // claimed. `bus` is not used.
    int GetDeviceInfo(int bus, int id, int lun, CScsiDeviceInfo& info) override;

private:
    int m_adaptor = 0; // as given to Open
    unsigned long m_maxTransfer = 0;
    int m_targetCount = 0;             // 0 before Open
    unsigned long m_alignmentMask = 0; // address bits of a buffer that must be 0
    HANDLE m_event = nullptr;          // set by the layer at the end of a command
};

// A device by way of the layer. One thread at a time.
class COREKIT_API CSD_Aspi : public CScsiDevice {
    DECLARE_DYNAMIC(CSD_Aspi)
public:
    CSD_Aspi() = default;
    CSD_Aspi(const CSD_Aspi&) = delete;
    CSD_Aspi& operator=(const CSD_Aspi&) = delete;
    ~CSD_Aspi() override; // likewise

    // Only keeps the numbers, so it always succeeds; a device that is not there is found out by the first
    // transfer. `bus` is not used.
    int Open(int adaptor, int bus, int id) override;
    // The buffer must meet the adaptor's alignment. Nonzero if the device has done the command; 0 for more
    // than 16,777,215 bytes, for numbers that fit no byte, and while the layer cannot be loaded.
    int Write(int lun, void* data, unsigned long size) override;
    int Read(int lun, void* data, unsigned long size) override;

private:
    // Sends one command and waits for it without a limit of time.
    int Transfer(unsigned char command, BYTE direction, int lun, void* data, unsigned long size);

    int m_adaptor = 0;
    int m_id = 0;
    HANDLE m_event = nullptr; // one command at a time
};
