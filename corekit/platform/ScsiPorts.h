// SCSI adaptors and their pass-through.
//
// "\\.\Scsi0:" is the first SCSI host of the machine, "\\.\Scsi1:" the next one in the order of the kernel's
// numbers, so that there are no gaps. Its buses are the host's channels. A device file ("/dev/sg3") takes
// commands as well: those go to that device, whatever path and target they name. The layouts are those of
// 32-bit callers where a structure holds no pointer.
#pragma once

#include "corekit/platform/Files.h"

inline constexpr DWORD IOCTL_SCSI_GET_INQUIRY_DATA = 0x4100C, IOCTL_SCSI_GET_CAPABILITIES = 0x41010,
                       IOCTL_SCSI_PASS_THROUGH_DIRECT = 0x4D014;

struct IO_SCSI_CAPABILITIES {
    DWORD Length;                      // of this record
    DWORD MaximumTransferLength;       // bytes
    DWORD MaximumPhysicalPages;        // pieces of memory in one transfer
    DWORD SupportedAsynchronousEvents; // 0, as all that follows
    DWORD AlignmentMask;
    BYTE TaggedQueuing;
    BYTE AdapterScansDown;
    BYTE AdapterUsesPio;
};
static_assert(sizeof(IO_SCSI_CAPABILITIES) == 24);

struct SCSI_BUS_DATA {
    BYTE NumberOfLogicalUnits; // devices that are there
    BYTE InitiatorBusId;       // 7
    DWORD InquiryDataOffset;   // of the first record, from the start of the buffer; 0: none
};
// Opens the inquiry data of an adaptor; one bus data follows another.
struct SCSI_ADAPTER_BUS_INFO {
    BYTE NumberOfBuses;
    SCSI_BUS_DATA BusData[1];
};
struct SCSI_INQUIRY_DATA {
    BYTE PathId; // bus
    BYTE TargetId;
    BYTE Lun;                    // logical unit
    BYTE DeviceClaimed;          // a driver has it
    DWORD InquiryDataLength;     // bytes that the device gave
    DWORD NextInquiryDataOffset; // 0: the last of the bus
    BYTE InquiryData[1];
};
static_assert(sizeof(SCSI_BUS_DATA) == 8 && offsetof(SCSI_ADAPTER_BUS_INFO, BusData) == 4 &&
              offsetof(SCSI_INQUIRY_DATA, InquiryData) == 12);

inline constexpr BYTE SCSI_IOCTL_DATA_OUT = 0, SCSI_IOCTL_DATA_IN = 1; // to the device, or from it

struct SCSI_PASS_THROUGH_DIRECT {
    WORD Length;
    BYTE ScsiStatus; // set: what the device answered
    BYTE PathId;
    BYTE TargetId;
    BYTE Lun;
    BYTE CdbLength;           // 1 to 16
    BYTE SenseInfoLength;     // set: how much of it there is
    BYTE DataIn;              // SCSI_IOCTL_
    DWORD DataTransferLength; // set: the bytes moved
    DWORD TimeOutValue;       // seconds
    void* DataBuffer;         // the caller's
    DWORD SenseInfoOffset;    // from the start of this structure
    BYTE Cdb[16];             // the command
};

// One of the three operations above. *returned gets the bytes written to `out`; inquiry data leave out the
// devices behind those that fit. 0 with error 122 for a buffer that is too small for any, 2 for a device that
// is not there, 5 without the right to send commands, 1460 when the device did not answer in time, 1117 when
// the way to it failed, 1 for other handles and operations. What the device itself says of the command is no
// failure: it stands in ScsiStatus and the sense data.
COREKIT_API BOOL DeviceIoControl(HANDLE device, DWORD operation, void* in, DWORD inSize, void* out,
                                 DWORD outSize, DWORD* returned, OVERLAPPED* overlapped);
