// The blocks in which an ASPI layer takes its commands: its layout, byte for byte and without padding,
// except that pointers have the width of this system.
//
// A block belongs to the caller. The layer writes to it until the status is no longer SS_PENDING, so it
// must stay where it is until then.
#pragma once

#include "corekit/platform/Types.h"

// Commands: ask an adaptor what it is, and send a SCSI command.
inline constexpr BYTE SC_HA_INQUIRY = 0, SC_EXEC_SCSI_CMD = 2;
// Status: under way, and done without an error. All other values are errors.
inline constexpr BYTE SS_PENDING = 0, SS_COMP = 1;
// Flags: data come from the device, data go to it, and SRB_PostProc is an event to be set at the end.
inline constexpr BYTE SRB_DIR_IN = 0x08, SRB_DIR_OUT = 0x10, SRB_EVENT_NOTIFY = 0x40;

#pragma pack(push, 1)
// What every block begins with.
struct SRB_Header {
    BYTE SRB_Cmd;       // SC_
    BYTE SRB_Status;    // set; SS_PENDING while it is under way
    BYTE SRB_HaId;      // the adaptor, from 0
    BYTE SRB_Flags;     // SRB_
    DWORD SRB_Hdr_Rsvd; // 0
};
// SC_HA_INQUIRY: what the adaptor answers.
struct SRB_HAInquiry {
    SRB_Header header;
    BYTE HA_Count;          // adaptors of this machine
    BYTE HA_SCSI_ID;        // the adaptor's own id
    BYTE HA_ManagerId[16];  // who drives it, padded with blanks
    BYTE HA_Identifier[16]; // what it is
    BYTE HA_Unique[16];     // alignment mask, targets, longest transfer
    WORD HA_Rsvd1;
};
// SC_EXEC_SCSI_CMD: one command to a device.
struct SRB_ExecSCSICmd {
    SRB_Header header;
    BYTE SRB_Target; // the device's id
    BYTE SRB_Lun;    // its unit
    WORD SRB_Rsvd1;
    DWORD SRB_BufLen;     // bytes to move
    BYTE* SRB_BufPointer; // from or to here
    BYTE SRB_SenseLen;    // room in SenseArea
    BYTE SRB_CDBLen;      // bytes of CDBByte in use
    BYTE SRB_HaStat;      // set: what the adaptor says
    BYTE SRB_TargStat;    // set: what the device says
    void* SRB_PostProc;   // the event
    BYTE SRB_Rsvd2[20];
    BYTE CDBByte[16];   // the command
    BYTE SenseArea[16]; // set: why the device refused
};
#pragma pack(pop)
static_assert(sizeof(SRB_HAInquiry) == 60);

// The two entries of the layer: one starts a command and gives its status, the other gives the number of
// adaptors in its low byte and SS_COMP in the next, if there are any.
using SendASPI32CommandFunction = DWORD (*)(void* block);
using GetASPI32SupportInfoFunction = DWORD (*)();
