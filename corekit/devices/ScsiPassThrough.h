// SCSI through the platform's own pass-through. See Scsi.h.
#pragma once

#include "corekit/devices/ScsiAdaptor.h"
#include "corekit/devices/ScsiDevice.h"
#include "corekit/platform/Files.h"

#include <memory>

// An adaptor. One thread at a time.
class COREKIT_API CSA_NT : public CScsiAdaptor {
    DECLARE_DYNAMIC(CSA_NT)
public:
    CSA_NT() = default;
    CSA_NT(const CSA_NT&) = delete;
    CSA_NT& operator=(const CSA_NT&) = delete;
    ~CSA_NT() override;

    // Also takes the inquiry data of all its devices, at most 8192 bytes, which GetDeviceInfo tells from
    // then on: a device that comes later is not seen until the next Open. 0 with the reason as the thread's
    // last error.
    int Open(int adaptor) override;

    int GetBusCount() override; // 0 before Open
    // The smaller of what the adaptor allows in bytes and what it allows in pages of memory.
    unsigned long GetMaxTransfer() override { return m_maxTransfer; }

    int GetTargetCount(int) override { return 16; } // on every bus
    // From what Open has taken: no device is asked. Texts lose the blanks at their end.
    int GetDeviceInfo(int bus, int id, int lun, CScsiDeviceInfo& info) override;

private:
    // Of the adaptor's file; what was taken stays.
    void Close();
    // The two parts of Open.
    int ReadCapabilities();
    int ReadInquiryData();

    HANDLE m_device = INVALID_HANDLE_VALUE; // the adaptor's file
    std::unique_ptr<BYTE[]> m_inquiry;      // made by the first Open
    DWORD m_inquirySize = 0;                // how much of the buffer is filled
    DWORD m_alignmentMask = 0;              // address bits of a buffer that must be 0
    unsigned long m_maxTransfer = 0;        // bytes
};

// A device. A command may take 5000 seconds before the platform gives it up. One thread at a time.
class COREKIT_API CSD_NT : public CScsiDevice {
    DECLARE_DYNAMIC(CSD_NT)
public:
    CSD_NT() = default;
    CSD_NT(const CSD_NT&) = delete;
    CSD_NT& operator=(const CSD_NT&) = delete;
    ~CSD_NT() override;

    // Opens the adaptor's file; whether there is such a device is found out by the first transfer. 0 with
    // the reason as the thread's last error, as in all operations.
    int Open(int adaptor, int bus, int id) override;
    // By the device's own file; path and target are 0 then.
    int OpenDirect(const char* deviceName);
    // Nonzero if the command reached the device; what the device said of it is not looked at. More than
    // 16,777,215 bytes are refused with 87, and so are numbers that fit no byte.
    int Write(int lun, void* data, unsigned long size) override;
    int Read(int lun, void* data, unsigned long size) override;

private:
    // Closes the file that was open; 0 if the new one cannot be had.
    int OpenFile(const char* name);
    // Nonzero if the platform took the command. Blocks until it is done.
    int Transfer(unsigned char command, BYTE dataIn, int lun, void* data, unsigned long size);

    HANDLE m_device = INVALID_HANDLE_VALUE;
    int m_path = 0;   // the bus
    int m_target = 0; // the id
};
