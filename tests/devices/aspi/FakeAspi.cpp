// An ASPI layer for the tests: two adaptors, of which the first has a prompter at id 3. What is sent to it is
// given back by the next receive, "slow" commands are answered from another thread.
#include "corekit/devices/AspiCommands.h"
#include "corekit/platform/Waits.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>

namespace {

constexpr BYTE failed = 4;
std::string kept;
BYTE lastCommand[6];

BYTE Run(SRB_ExecSCSICmd& block)
{
    if (block.header.SRB_HaId != 0 || block.SRB_Target != 3 || block.SRB_Lun != 0) return failed;
    std::memcpy(lastCommand, block.CDBByte, sizeof lastCommand);
    switch (block.CDBByte[0]) {
    case 0x12:
        if (reinterpret_cast<UINT_PTR>(block.SRB_BufPointer) & 0x1F) return failed; // not aligned
        std::memcpy(block.SRB_BufPointer, "\x03\x81\x02\x02\x1f\0\0\0CORVANE PROMPTER LINK   1.02", 36);
        return SS_COMP;
    case 0x0A:
        if (block.header.SRB_Flags != (SRB_EVENT_NOTIFY | SRB_DIR_OUT)) return failed;
        kept.assign(reinterpret_cast<char*>(block.SRB_BufPointer), block.SRB_BufLen);
        return SS_COMP;
    case 0x08:
        std::copy_n(kept.begin(), std::min<std::size_t>(kept.size(), block.SRB_BufLen),
                    reinterpret_cast<char*>(block.SRB_BufPointer));
        return SS_COMP;
    default:
        return failed;
    }
}

} // namespace

extern "C" COREKIT_API DWORD GetASPI32SupportInfo() { return SS_COMP << 8 | 2; }

extern "C" COREKIT_API const BYTE* LastAspiCommand() { return lastCommand; }

extern "C" COREKIT_API DWORD SendASPI32Command(void* address)
{
    auto* const header = static_cast<SRB_Header*>(address);
    if (header->SRB_Cmd == SC_HA_INQUIRY) {
        auto* const inquiry = static_cast<SRB_HAInquiry*>(address);
        const BYTE facts[2][8] = {{0x1F, 0, 0, 0, 0, 0, 1, 0}, {0, 0, 0, 16, 0, 0, 2, 0}};
        std::memcpy(inquiry->HA_Unique, facts[header->SRB_HaId & 1], 8);
        return header->SRB_Status = SS_COMP;
    }
    auto* const block = static_cast<SRB_ExecSCSICmd*>(address);
    header->SRB_Status = SS_PENDING;
    std::thread([block] {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        block->header.SRB_Status = Run(*block);
        SetEvent(block->SRB_PostProc);
    }).detach();
    return SS_PENDING;
}
