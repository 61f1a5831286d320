#include "corekit/devices/ScsiPassThrough.h"

#include "corekit/devices/ScsiInquiry.h"
#include "corekit/foundation/SystemHelpers.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/ScsiPorts.h"
#include "corekit/platform/SystemInfo.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(CSA_NT, CScsiAdaptor)
IMPLEMENT_DYNAMIC(CSD_NT, CScsiDevice)

namespace {

constexpr DWORD inquirySize = 8192;
constexpr DWORD timeLimit = 5000; // seconds
constexpr BYTE senseSize = 192;

HANDLE openShared(const char* name)
{
    return CreateFileA(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       OPEN_EXISTING, 0, nullptr);
}

CString portName(int adaptor) { return scFormatString("\\\\.\\Scsi%d:", adaptor); }

void closeIfOpen(HANDLE& handle)
{
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(std::exchange(handle, INVALID_HANDLE_VALUE));
}

// A command and room for what the device says of it.
struct CommandBlock {
    SCSI_PASS_THROUGH_DIRECT command{};
    BYTE sense[senseSize] = {};
};

} // namespace

CSA_NT::~CSA_NT() { Close(); }

void CSA_NT::Close() { closeIfOpen(m_device); }

int CSA_NT::Open(int adaptor)
{
    Close();
    m_device = openShared(portName(adaptor));
    if (m_device == INVALID_HANDLE_VALUE) return 0;
    if (ReadCapabilities() && ReadInquiryData()) return 1;
    const DWORD reason = GetLastError();
    Close();
    SetLastError(reason);
    return 0;
}

int CSA_NT::ReadCapabilities()
{
    IO_SCSI_CAPABILITIES told{};
    DWORD returned = 0;
    if (!DeviceIoControl(m_device, IOCTL_SCSI_GET_CAPABILITIES, nullptr, 0, &told, sizeof told, &returned,
                         nullptr))
        return 0;
    SYSTEM_INFO system;
    GetSystemInfo(&system);
    m_alignmentMask = told.AlignmentMask;
    m_maxTransfer =
        std::min<unsigned long>(told.MaximumTransferLength,
                                static_cast<unsigned long>(told.MaximumPhysicalPages) * system.dwPageSize);
    return 1;
}

int CSA_NT::ReadInquiryData()
{
    if (!m_inquiry) m_inquiry = std::make_unique<BYTE[]>(inquirySize);
    m_inquirySize = 0;
    return DeviceIoControl(m_device, IOCTL_SCSI_GET_INQUIRY_DATA, nullptr, 0, m_inquiry.get(), inquirySize,
                           &m_inquirySize, nullptr);
}

int CSA_NT::GetBusCount() { return m_inquirySize > 0 ? m_inquiry[0] : 0; }

int CSA_NT::GetDeviceInfo(int bus, int id, int lun, CScsiDeviceInfo& info)
{
    using namespace corekit::detail;
    InquiryRecord record;
    if (!findInquiryRecord({m_inquiry.get(), m_inquirySize}, bus, id, lun, record)) return 0;
    decodeInquiry(record.answer, FieldPadding::trim, info);
    info.m_claimed = record.claimed;
    return 1;
}

CSD_NT::~CSD_NT() { closeIfOpen(m_device); }

int CSD_NT::OpenFile(const char* name)
{
    closeIfOpen(m_device);
    m_device = openShared(name);
    return m_device != INVALID_HANDLE_VALUE;
}

int CSD_NT::Open(int adaptor, int bus, int id)
{
    m_path = bus;
    m_target = id;
    return OpenFile(portName(adaptor));
}

int CSD_NT::OpenDirect(const char* deviceName)
{
    m_path = m_target = 0;
    return OpenFile(deviceName);
}

int CSD_NT::Write(int lun, void* data, unsigned long size)
{
    return Transfer(corekit::detail::sendCommand, SCSI_IOCTL_DATA_OUT, lun, data, size);
}

int CSD_NT::Read(int lun, void* data, unsigned long size)
{
    return Transfer(corekit::detail::receiveCommand, SCSI_IOCTL_DATA_IN, lun, data, size);
}

int CSD_NT::Transfer(unsigned char command, BYTE dataIn, int lun, void* data, unsigned long size)
{
    if (size > corekit::detail::largestTransfer || !corekit::detail::namesUnit(m_path, m_target, lun)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    CommandBlock block;
    SCSI_PASS_THROUGH_DIRECT& request = block.command;
    request.Length = sizeof request;
    request.PathId = static_cast<BYTE>(m_path);
    request.TargetId = static_cast<BYTE>(m_target);
    request.Lun = static_cast<BYTE>(lun);
    request.CdbLength = corekit::detail::transferCommandSize;
    request.SenseInfoLength = senseSize;
    request.DataIn = dataIn;
    request.DataTransferLength = static_cast<DWORD>(size);
    request.DataBuffer = data;
    request.TimeOutValue = timeLimit;
    request.SenseInfoOffset = offsetof(CommandBlock, sense);
    corekit::detail::makeTransferCommand(command, size, request.Cdb);
    DWORD returned = 0;
    return DeviceIoControl(m_device, IOCTL_SCSI_PASS_THROUGH_DIRECT, &block, sizeof block, &block,
                           sizeof block, &returned, nullptr);
}
