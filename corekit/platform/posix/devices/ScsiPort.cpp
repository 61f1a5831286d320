#include "corekit/platform/posix/devices/DeviceNames.h"
#include "corekit/platform/posix/devices/PassThrough.h"
#include "corekit/platform/posix/devices/ScsiHosts.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <new>
#include <span>

namespace corekit::detail {
namespace {

// An open adaptor: its host, by the kernel's number.
class ScsiPort final : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::scsiPort;
    explicit ScsiPort(unsigned number) : Object(objectKind), host(number) {}

    const unsigned host;
};

DWORD tellCapabilities(unsigned host, void* out, DWORD outSize, DWORD& returned)
{
    if (outSize < sizeof(IO_SCSI_CAPABILITIES)) return ERROR_INSUFFICIENT_BUFFER;
    const ScsiLimits limits = scsiLimits(host);
    IO_SCSI_CAPABILITIES told{};
    told.Length = sizeof told;
    told.MaximumTransferLength = limits.bytes;
    told.MaximumPhysicalPages = limits.pieces;
    std::memcpy(out, &told, sizeof told);
    returned = sizeof told;
    return NO_ERROR;
}

// Lays bus data and records out in a buffer. Units behind those that fit are left out: an adaptor with many
// more is still of use.
class InquiryWriter {
public:
    InquiryWriter(BYTE* out, DWORD size) : m_out(out), m_size(size) {}

    DWORD write(std::span<const ScsiUnit> units, DWORD& returned)
    {
        const unsigned count = units.empty() ? 1 : units.back().bus + 1;
        m_used = offsetof(SCSI_ADAPTER_BUS_INFO, BusData) + count * sizeof(SCSI_BUS_DATA);
        if (count > 255 || m_used > m_size) return ERROR_INSUFFICIENT_BUFFER;
        std::map<unsigned, std::vector<const ScsiUnit*>> buses;
        for (const ScsiUnit& unit :
             units.first(std::min<std::size_t>(units.size(), (m_size - m_used) / recordSize)))
            buses[unit.bus].push_back(&unit);
        std::memset(m_out, 0, m_used);
        m_out[0] = static_cast<BYTE>(count);
        for (const auto& [bus, members] : buses) writeBus(bus, members);
        returned = m_used;
        return NO_ERROR;
    }

private:
    static constexpr DWORD recordSize = offsetof(SCSI_INQUIRY_DATA, InquiryData) + sizeof(Inquiry);
    static_assert(recordSize % alignof(DWORD) == 0);

    void writeBus(unsigned bus, const std::vector<const ScsiUnit*>& units)
    {
        SCSI_BUS_DATA data{};
        data.NumberOfLogicalUnits = static_cast<BYTE>(std::min<std::size_t>(units.size(), 255));
        data.InitiatorBusId = 7;
        data.InquiryDataOffset = m_used;
        std::memcpy(m_out + offsetof(SCSI_ADAPTER_BUS_INFO, BusData) + bus * sizeof data, &data, sizeof data);
        for (const ScsiUnit* unit : units) writeUnit(*unit, unit == units.back());
    }

    void writeUnit(const ScsiUnit& unit, bool isLast)
    {
        SCSI_INQUIRY_DATA record{};
        record.PathId = static_cast<BYTE>(unit.bus);
        record.TargetId = static_cast<BYTE>(unit.id);
        record.Lun = static_cast<BYTE>(unit.lun);
        record.DeviceClaimed = unit.isClaimed;
        record.InquiryDataLength = unit.inquirySize;
        record.NextInquiryDataOffset = isLast ? 0 : m_used + recordSize;
        constexpr DWORD head = offsetof(SCSI_INQUIRY_DATA, InquiryData);
        std::memcpy(m_out + m_used, &record, head);
        std::memcpy(m_out + m_used + head, unit.inquiry.data(), sizeof(Inquiry));
        m_used += recordSize;
    }

    BYTE* const m_out;
    const DWORD m_size;
    DWORD m_used = 0;
};

// A command, with its sense data behind it, as it came in.
DWORD sendCommand(int fd, void* in, DWORD inSize, void* out, DWORD outSize, DWORD& returned)
{
    SCSI_PASS_THROUGH_DIRECT command;
    if (inSize < sizeof command || outSize < sizeof command || in == nullptr || out == nullptr)
        return ERROR_INSUFFICIENT_BUFFER;
    std::memcpy(&command, in, sizeof command);
    const DWORD room = command.SenseInfoLength;
    if (room > 0 && (command.SenseInfoOffset < sizeof command || command.SenseInfoOffset > outSize ||
                     outSize - command.SenseInfoOffset < room))
        return ERROR_INVALID_PARAMETER;
    BYTE sense[256] = {};
    const DWORD error = passThrough(fd, command, room > 0 ? sense : nullptr, room);
    if (error != NO_ERROR) return error;
    std::memcpy(out, &command, sizeof command);
    if (room > 0) std::memcpy(static_cast<BYTE*>(out) + command.SenseInfoOffset, sense, room);
    returned = outSize;
    return NO_ERROR;
}

DWORD sendThroughPort(unsigned host, void* in, DWORD inSize, void* out, DWORD outSize, DWORD& returned)
{
    SCSI_PASS_THROUGH_DIRECT command;
    if (in == nullptr || inSize < sizeof command) return ERROR_INSUFFICIENT_BUFFER;
    std::memcpy(&command, in, sizeof command);
    const std::string path = scsiDevice(host, command.PathId, command.TargetId, command.Lun);
    if (path.empty()) return ERROR_FILE_NOT_FOUND;
    const Descriptor device(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (!device) return errorFromErrno(errno);
    return sendCommand(device.get(), in, inSize, out, outSize, returned);
}

DWORD control(HANDLE handle, DWORD operation, void* in, DWORD inSize, void* out, DWORD outSize,
              DWORD& returned)
{
    if (const HandleUser<ScsiPort> port(handle); port) {
        if (operation == IOCTL_SCSI_PASS_THROUGH_DIRECT)
            return sendThroughPort(port->host, in, inSize, out, outSize, returned);
        if (out == nullptr) return ERROR_INSUFFICIENT_BUFFER;
        if (operation == IOCTL_SCSI_GET_CAPABILITIES)
            return tellCapabilities(port->host, out, outSize, returned);
        if (operation == IOCTL_SCSI_GET_INQUIRY_DATA)
            return InquiryWriter(static_cast<BYTE*>(out), outSize).write(scsiUnits(port->host), returned);
        return ERROR_INVALID_FUNCTION;
    }
    const HandleUser<File> file(handle);
    if (!file) return ERROR_INVALID_HANDLE;
    if (operation != IOCTL_SCSI_PASS_THROUGH_DIRECT) return ERROR_INVALID_FUNCTION;
    return sendCommand(file->descriptor(), in, inSize, out, outSize, returned);
}

} // namespace

HANDLE openScsiPort(int number, const DeviceUse& use)
try {
    if (use.disposition != OPEN_EXISTING) return fail(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    const std::vector<unsigned> hosts = scsiHosts();
    if (static_cast<std::size_t>(number) >= hosts.size())
        return fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
    const HANDLE handle = openHandle(std::make_unique<ScsiPort>(hosts[static_cast<std::size_t>(number)]));
    return handle != nullptr ? handle : INVALID_HANDLE_VALUE;
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, INVALID_HANDLE_VALUE);
}

} // namespace corekit::detail

BOOL DeviceIoControl(HANDLE device, DWORD operation, void* in, DWORD inSize, void* out, DWORD outSize,
                     DWORD* returned, OVERLAPPED*)
{
    using namespace corekit::detail;
    DWORD moved = 0;
    const DWORD error = control(device, operation, in, inSize, out, outSize, moved);
    if (returned != nullptr) *returned = moved;
    return error == NO_ERROR ? TRUE : fail(error, FALSE);
}
