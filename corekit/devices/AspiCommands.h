// The blocks in which an ASPI layer takes its commands.
#pragma once

#include "corekit/platform/Types.h"

inline constexpr BYTE SC_HA_INQUIRY = 0, SC_EXEC_SCSI_CMD = 2;
inline constexpr BYTE SS_PENDING = 0, SS_COMP = 1;
inline constexpr BYTE SRB_DIR_IN = 0x08, SRB_DIR_OUT = 0x10, SRB_EVENT_NOTIFY = 0x40;

#pragma pack(push, 1)
struct SRB_Header {
    BYTE SRB_Cmd;
    BYTE SRB_Status; // set; SS_PENDING while it is under way
    BYTE SRB_HaId;
    BYTE SRB_Flags;
    DWORD SRB_Hdr_Rsvd;
};
struct SRB_HAInquiry {
    SRB_Header header;
    BYTE HA_Count;
    BYTE HA_SCSI_ID;
    BYTE HA_ManagerId[16];
    BYTE HA_Identifier[16];
    BYTE HA_Unique[16];
    WORD HA_Rsvd1;
};
struct SRB_ExecSCSICmd {
    SRB_Header header;
    BYTE SRB_Target;
    BYTE SRB_Lun;
    WORD SRB_Rsvd1;
    DWORD SRB_BufLen;
    BYTE* SRB_BufPointer;
    BYTE SRB_SenseLen;
    BYTE SRB_CDBLen;
    BYTE SRB_HaStat;
    BYTE SRB_TargStat;
    void* SRB_PostProc; // the event
    BYTE SRB_Rsvd2[20];
    BYTE CDBByte[16];
    BYTE SenseArea[16];
};
#pragma pack(pop)
static_assert(sizeof(SRB_HAInquiry) == 60);

using SendASPI32CommandFunction = DWORD (*)(void* block);
using GetASPI32SupportInfoFunction = DWORD (*)();
