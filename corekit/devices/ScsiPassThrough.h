// SCSI through the platform's own pass-through. See Scsi.h.
#pragma once

#include "corekit/devices/ScsiAdaptor.h"
#include "corekit/devices/ScsiDevice.h"
#include "corekit/platform/Files.h"

#include <memory>

class COREKIT_API CSA_NT : public CScsiAdaptor {
    DECLARE_DYNAMIC(CSA_NT)
public:
    CSA_NT() = default;
    CSA_NT(const CSA_NT&) = delete;
    CSA_NT& operator=(const CSA_NT&) = delete;
    ~CSA_NT() override;

    // Also takes the inquiry data of all its devices, which GetDeviceInfo tells from then on.
    int Open(int adaptor) override;
    int GetBusCount() override;
    unsigned long GetMaxTransfer() override { return m_maxTransfer; }
    int GetTargetCount(int) override { return 16; }
    int GetDeviceInfo(int bus, int id, int lun, CScsiDeviceInfo& info) override;

private:
    void Close();
    int ReadCapabilities();
    int ReadInquiryData();

    HANDLE m_device = INVALID_HANDLE_VALUE;
    std::unique_ptr<BYTE[]> m_inquiry;
    DWORD m_inquirySize = 0; // how much of the buffer is filled
    DWORD m_alignmentMask = 0;
    unsigned long m_maxTransfer = 0;
};

class COREKIT_API CSD_NT : public CScsiDevice {
    DECLARE_DYNAMIC(CSD_NT)
public:
    CSD_NT() = default;
    CSD_NT(const CSD_NT&) = delete;
    CSD_NT& operator=(const CSD_NT&) = delete;
    ~CSD_NT() override;

    int Open(int adaptor, int bus, int id) override;
    // By the device's own file; path and target are 0 then.
    int OpenDirect(const char* deviceName);
    // Nonzero if the command reached the device; what the device said of it is not looked at.
    int Write(int lun, void* data, unsigned long size) override;
    int Read(int lun, void* data, unsigned long size) override;

private:
    int OpenFile(const char* name);
    int Transfer(unsigned char command, BYTE dataIn, int lun, void* data, unsigned long size);

    HANDLE m_device = INVALID_HANDLE_VALUE;
    BYTE m_path = 0;
    BYTE m_target = 0;
};
