// An open serial port as an object behind a handle.
#pragma once

#include "corekit/platform/posix/devices/SerialLane.h"
#include "corekit/platform/posix/files/ShareTable.h"
#include "corekit/platform/posix/ports/IoObject.h"

namespace corekit::detail {

class SerialPort final : public IoObject {
public:
    static constexpr ObjectKind objectKind = ObjectKind::serialPort;

    // The opening was entered with claimFile, which this object undoes.
    SerialPort(Descriptor line, const FileId& id, DWORD access);
    ~SerialPort() override;

    void setTimeouts(const COMMTIMEOUTS& timeouts);
    // Ends the transfers of that direction with error 995.
    void cancel(Direction direction);

private:
    class Channel;

    const FileId m_id;
    const FileUse m_use;
    std::shared_ptr<Channel> m_lanes;
};

} // namespace corekit::detail
