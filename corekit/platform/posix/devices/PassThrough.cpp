#include "corekit/platform/posix/devices/PassThrough.h"

#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <scsi/sg_pt.h>

namespace corekit::detail {
namespace {

using Command = std::unique_ptr<sg_pt_base, decltype(&destruct_scsi_pt_obj)>;

constexpr int quiet = 0;
constexpr int hostTimedOut = 3; // as the kernel's lower layers tell it

DWORD errorOf(int sent, const sg_pt_base& command)
{
    if (sent == SCSI_PT_DO_TIMEOUT) return ERROR_TIMEOUT;
    if (sent < 0) return errorFromErrno(-sent);
    if (sent > 0) return ERROR_INVALID_PARAMETER;
    switch (get_scsi_pt_result_category(&command)) {
    case SCSI_PT_RESULT_OS_ERR:
        return errorFromErrno(get_scsi_pt_os_err(&command));
    case SCSI_PT_RESULT_TRANSPORT_ERR:
        return (get_scsi_pt_transport_err(&command) & 0xFF) == hostTimedOut ? ERROR_TIMEOUT : ERROR_IO_DEVICE;
    default:
        return NO_ERROR;
    }
}

} // namespace

DWORD passThrough(int fd, SCSI_PASS_THROUGH_DIRECT& request, BYTE* sense, DWORD senseRoom)
{
    const bool isIn = request.DataIn != SCSI_IOCTL_DATA_OUT;
    if (request.CdbLength == 0 || request.CdbLength > sizeof request.Cdb ||
        request.DataTransferLength > INT_MAX || request.TimeOutValue > INT_MAX / 1000 ||
        (request.DataTransferLength > 0 && request.DataBuffer == nullptr))
        return ERROR_INVALID_PARAMETER;
    const Command command(construct_scsi_pt_obj_with_fd(fd, quiet), &destruct_scsi_pt_obj);
    if (!command) return ERROR_NOT_ENOUGH_MEMORY;
    set_scsi_pt_cdb(command.get(), request.Cdb, request.CdbLength);
    set_scsi_pt_sense(command.get(), sense, static_cast<int>(senseRoom));
    auto* const data = static_cast<BYTE*>(request.DataBuffer);
    const int size = static_cast<int>(request.DataTransferLength);
    if (size > 0 && isIn) set_scsi_pt_data_in(command.get(), data, size);
    if (size > 0 && !isIn) set_scsi_pt_data_out(command.get(), data, size);
    const int sent = do_scsi_pt(command.get(), fd, static_cast<int>(request.TimeOutValue), quiet);
    if (const DWORD error = errorOf(sent, *command); error != NO_ERROR) return error;
    request.ScsiStatus = static_cast<BYTE>(get_scsi_pt_status_response(command.get()));
    request.SenseInfoLength = static_cast<BYTE>(std::clamp(
        get_scsi_pt_sense_len(command.get()), 0, static_cast<int>(std::min<DWORD>(senseRoom, 255))));
    request.DataTransferLength -= static_cast<DWORD>(std::clamp(get_scsi_pt_resid(command.get()), 0, size));
    return NO_ERROR;
}

} // namespace corekit::detail
