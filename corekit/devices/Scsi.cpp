#include "corekit/devices/Scsi.h"

#include "corekit/devices/ScsiAspi.h"
#include "corekit/devices/ScsiPassThrough.h"
#include "corekit/foundation/SystemInfo.h"

#include <memory>

IMPLEMENT_DYNAMIC(CScsiAdaptor, CObject)
IMPLEMENT_DYNAMIC(CScsiDevice, CObject)

namespace {

constexpr int lunsPerTarget = 8;

template <class Base, class PassThrough, class Aspi>
std::unique_ptr<Base> forPlatform()
{
    if (SysInfo().IsPlatformWindowsNT()) return std::make_unique<PassThrough>();
    return std::make_unique<Aspi>();
}

// The place on the adaptor of the first device that is meant: bus, id and lun, a byte each; -1 for none.
template <class IsMeant>
long findOn(CScsiAdaptor& adaptor, IsMeant isMeant)
{
    for (int bus = 0; bus < adaptor.GetBusCount(); ++bus)
        for (int id = 0; id < adaptor.GetTargetCount(bus); ++id)
            for (int lun = 0; lun < lunsPerTarget; ++lun) {
                CScsiDeviceInfo info;
                if (adaptor.GetDeviceInfo(bus, id, lun, info) && isMeant(info))
                    return (bus & 255) << 16 | (id & 255) << 8 | lun;
            }
    return -1;
}

} // namespace

void corekit::detail::makeTransferCommand(unsigned char command, unsigned long size, unsigned char* cdb)
{
    cdb[0] = command;
    cdb[1] = 0;
    cdb[2] = static_cast<unsigned char>(size >> 16);
    cdb[3] = static_cast<unsigned char>(size >> 8);
    cdb[4] = static_cast<unsigned char>(size);
    cdb[5] = 0;
}

CScsiAdaptor* scsiOpenAdaptor(int adaptor)
{
    auto opened = forPlatform<CScsiAdaptor, CSA_NT, CSA_Aspi>();
    return opened->Open(adaptor) ? opened.release() : nullptr;
}

CScsiDevice* scsiCreateDeviceHandler(int adaptor, int bus, int id)
{
    auto opened = forPlatform<CScsiDevice, CSD_NT, CSD_Aspi>();
    return opened->Open(adaptor, bus, id) ? opened.release() : nullptr;
}

CScsiDevice* scsiCreateDeviceHandlerDirect(const char* deviceName)
{
    auto opened = std::make_unique<CSD_NT>();
    return opened->OpenDirect(deviceName) ? opened.release() : nullptr;
}

int scsiFindDevice(int deviceType, const char* vendor, const char* product, unsigned long& address,
                   int& claimed)
{
    const auto isMeant = [&](const CScsiDeviceInfo& info) {
        const bool matches =
            info.m_type == deviceType && info.m_vendor == vendor && info.m_product == product;
        if (matches) claimed = info.m_claimed;
        return matches;
    };
    for (int number = 0;; ++number) {
        const std::unique_ptr<CScsiAdaptor> adaptor(scsiOpenAdaptor(number));
        if (!adaptor) return 0;
        const long place = findOn(*adaptor, isMeant);
        if (place < 0) continue;
        address = (static_cast<unsigned long>(number) & 255) << 24 | static_cast<unsigned long>(place);
        return 1;
    }
}
