#include "corekit/devices/ScsiAspi.h"

#include "corekit/devices/AspiCommands.h"
#include "corekit/devices/ScsiInquiry.h"
#include "corekit/platform/Libraries.h"
#include "corekit/platform/Waits.h"

#include <cstdint>
#include <memory>
#include <mutex>

IMPLEMENT_DYNAMIC(CSA_Aspi, CScsiAdaptor)
IMPLEMENT_DYNAMIC(CSD_Aspi, CScsiDevice)

namespace {
using namespace corekit::detail;

// The loaded layer; all null while there is none.
struct Layer {
    HMODULE module = nullptr;
    SendASPI32CommandFunction send = nullptr;
    GetASPI32SupportInfoFunction supportInfo = nullptr;
    int adaptors = 0;
};
std::mutex layerLock;
Layer layer;

template <class Function>
Function entry(HMODULE library, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

// Loads it once it can be had. Kept from then on.
bool loadLayer()
{
    const std::lock_guard guard(layerLock);
    if (layer.module) return true;
    const HMODULE library = LoadLibraryA("wnaspi32.dll");
    if (!library) return false;
    Layer loaded{library, entry<SendASPI32CommandFunction>(library, "SendASPI32Command"),
                 entry<GetASPI32SupportInfoFunction>(library, "GetASPI32SupportInfo")};
    const DWORD support = loaded.send && loaded.supportInfo ? loaded.supportInfo() : 0;
    if (HIBYTE(LOWORD(support)) != SS_COMP) {
        FreeLibrary(library);
        return false;
    }
    loaded.adaptors = LOBYTE(LOWORD(support));
    layer = loaded;
    return true;
}

// Sends a command that the event will tell of, and waits for it.
bool execute(SRB_ExecSCSICmd& command, HANDLE event)
{
    if (!layer.module) return false;
    command.SRB_PostProc = event;
    ResetEvent(event);
    DWORD status = layer.send(&command);
    if (status == SS_PENDING) {
        WaitForSingleObject(event, INFINITE);
        status = command.header.SRB_Status;
    }
    return status == SS_COMP;
}

SRB_ExecSCSICmd commandFor(int adaptor, int id, int lun, BYTE direction)
{
    SRB_ExecSCSICmd command{};
    command.header.SRB_Cmd = SC_EXEC_SCSI_CMD;
    command.header.SRB_HaId = static_cast<BYTE>(adaptor);
    command.header.SRB_Flags = static_cast<BYTE>(SRB_EVENT_NOTIFY | direction);
    command.SRB_Target = static_cast<BYTE>(id);
    command.SRB_Lun = static_cast<BYTE>(lun);
    command.SRB_CDBLen = transferCommandSize;
    return command;
}

// A block of memory at an address whose bits under the mask are clear.
class AlignedBlock {
public:
    AlignedBlock(std::size_t size, std::uintptr_t mask) : m_memory(std::make_unique<BYTE[]>(size + mask))
    {
        const auto start = reinterpret_cast<std::uintptr_t>(m_memory.get());
        std::uintptr_t offset = 0;
        while (offset < mask && ((start + offset) & mask) != 0) ++offset;
        m_start = m_memory.get() + offset;
    }
    BYTE* Get() const { return m_start; }

private:
    std::unique_ptr<BYTE[]> m_memory;
    BYTE* m_start;
};

DWORD fourBytes(const BYTE* bytes)
{
    return DWORD{bytes[0]} | DWORD{bytes[1]} << 8 | DWORD{bytes[2]} << 16 | DWORD{bytes[3]} << 24;
}

void renew(HANDLE& event, BOOL manualReset)
{
    if (event) CloseHandle(event);
    event = CreateEventA(nullptr, manualReset, FALSE, nullptr);
}

} // namespace

CSA_Aspi::~CSA_Aspi()
{
    if (m_event) CloseHandle(m_event);
}

int CSA_Aspi::Open(int adaptor)
{
    renew(m_event, TRUE);
    if (!loadLayer() || adaptor < 0 || adaptor >= layer.adaptors) return 0;
    SRB_HAInquiry inquiry{};
    inquiry.header.SRB_Cmd = SC_HA_INQUIRY;
    inquiry.header.SRB_HaId = static_cast<BYTE>(adaptor);
    if (layer.send(&inquiry) != SS_COMP) return 0;
    const BYTE* const facts = inquiry.HA_Unique;
    constexpr int usualTargets = 8;
    m_adaptor = adaptor;
    m_alignmentMask = MAKEWORD(facts[0], facts[1]);
    m_targetCount = facts[3] != 0 ? facts[3] : usualTargets;
    m_maxTransfer = fourBytes(facts + 4);
    return 1;
}

int CSA_Aspi::GetDeviceInfo(int, int id, int lun, CScsiDeviceInfo& info)
{
    constexpr BYTE inquiryCommand = 0x12, answerSize = 36, senseSize = 14;
    if (!namesUnit(m_adaptor, id, lun)) return 0;
    const AlignedBlock answer(answerSize, m_alignmentMask);
    SRB_ExecSCSICmd command = commandFor(m_adaptor, id, lun, SRB_DIR_IN);
    command.SRB_BufLen = answerSize;
    command.SRB_BufPointer = answer.Get();
    command.SRB_SenseLen = senseSize;
    command.CDBByte[0] = inquiryCommand;
    command.CDBByte[1] = static_cast<BYTE>(lun * 32);
    command.CDBByte[4] = answerSize;
    if (!execute(command, m_event)) return 0;
    decodeInquiry({answer.Get(), answerSize}, FieldPadding::keep, info);
    info.m_claimed = 0;
    return 1;
}

CSD_Aspi::~CSD_Aspi()
{
    if (m_event) CloseHandle(m_event);
}

int CSD_Aspi::Open(int adaptor, int, int id)
{
    m_adaptor = adaptor;
    m_id = id;
    renew(m_event, FALSE);
    return 1;
}

int CSD_Aspi::Write(int lun, void* data, unsigned long size)
{
    return Transfer(sendCommand, SRB_DIR_OUT, lun, data, size);
}

int CSD_Aspi::Read(int lun, void* data, unsigned long size)
{
    return Transfer(receiveCommand, SRB_DIR_IN, lun, data, size);
}

int CSD_Aspi::Transfer(unsigned char command, BYTE direction, int lun, void* data, unsigned long size)
{
    if (size > largestTransfer || !namesUnit(m_adaptor, m_id, lun) || !loadLayer()) return 0;
    SRB_ExecSCSICmd block = commandFor(m_adaptor, m_id, lun, direction);
    block.SRB_BufLen = static_cast<DWORD>(size);
    block.SRB_BufPointer = static_cast<BYTE*>(data);
    makeTransferCommand(command, size, block.CDBByte);
    return execute(block, m_event);
}
