// corekit scsi: the machine's SCSI devices.
#include "Commands.h"
#include "Output.h"
#include "Table.h"

#include "corekit/devices/Scsi.h"
#include "corekit/platform/DeviceFolders.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace {

constexpr int lunsPerTarget = 8;

std::string TypeName(int type)
{
    static constexpr const char* names[] = {"disk",     "tape",     "printer", "processor", "write-once",
                                            "CD",       "scanner",  "optical", "changer",   "network",
                                            "prepress", "prepress", "array",   "enclosure"};
    return static_cast<std::size_t>(type) < std::size(names) ? names[type] : std::to_string(type);
}

// Calls use(address, info) for every device.
template <class Use>
void EachDevice(Use use)
{
    for (int number = 0;; ++number) {
        const std::unique_ptr<CScsiAdaptor> adaptor(scsiOpenAdaptor(number));
        if (!adaptor) return;
        for (int bus = 0; bus < adaptor->GetBusCount(); ++bus)
            for (int id = 0; id < adaptor->GetTargetCount(bus); ++id)
                for (int lun = 0; lun < lunsPerTarget; ++lun) {
                    CScsiDeviceInfo info;
                    if (!adaptor->GetDeviceInfo(bus, id, lun, info)) continue;
                    CScsiAddress address;
                    address.m_adaptor = number;
                    address.m_bus = bus;
                    address.m_id = id;
                    address.m_lun = lun;
                    use(address, info);
                }
    }
}

void List()
{
    TableRows rows = {{"ADDRESS", "TYPE", "VENDOR", "PRODUCT", "REVISION", "DRIVER"}};
    EachDevice([&](const CScsiAddress& address, const CScsiDeviceInfo& info) {
        rows.push_back({address.MakeRawString().GetString(), TypeName(info.m_type), info.m_vendor.GetString(),
                        info.m_product.GetString(), info.m_revision.GetString(),
                        info.m_claimed ? "yes" : "no"});
    });
    if (rows.size() > 1 || IsJsonWanted())
        PrintTable(rows);
    else
        PrintLine("This machine has no SCSI devices.");
}

void Inquire(const std::string& text)
{
    CScsiAddress address;
    address.DecodeRawString(text.c_str());
    if (text != address.MakeRawString().GetString())
        throw std::runtime_error(
            text + ": no address of the form ADAPTOR.BUS.ID.LUN, as corekit scsi list prints it");
    const std::unique_ptr<CScsiAdaptor> adaptor(scsiOpenAdaptor(address.m_adaptor));
    CScsiDeviceInfo info;
    if (!adaptor || !adaptor->GetDeviceInfo(address.m_bus, address.m_id, address.m_lun, info))
        throw std::runtime_error(text + ": there is no such device");
    Print("place      %s\n", address.MakeAddressString().GetString());
    Print("type       %d, %s\n", info.m_type, TypeName(info.m_type).c_str());
    Print("vendor     %s\n", info.m_vendor.GetString());
    Print("product    %s\n", info.m_product.GetString());
    Print("revision   %s\n", info.m_revision.GetString());
    Print("removable  %s\n", info.m_removable ? "yes" : "no");
    Print("driver     %s\n", info.m_claimed ? "yes" : "no");
    Print("transfers  up to %lu bytes\n", adaptor->GetMaxTransfer());
}

} // namespace

void AddScsiCommand(CLI::App& app)
{
    const auto folders = std::make_shared<DeviceFolders>();
    const auto address = std::make_shared<std::string>();
    CLI::App* scsi = app.add_subcommand("scsi", "List SCSI devices");
    scsi->require_subcommand(1);
    scsi->add_option("--devices", folders->devices, "The folder of device files")->capture_default_str();
    scsi->add_option("--sysfs", folders->system, "The folder in which the kernel tells of them")
        ->capture_default_str();
    CLI::App* list = scsi->add_subcommand("list", "Print what is attached to the machine's adaptors");
    OfferJson(*list);
    list->callback([folders] {
        SetDeviceFolders(*folders);
        List();
    });
    CLI::App* inquire = scsi->add_subcommand("inquire", "Print what one device says of itself");
    inquire->add_option("address", *address, "ADAPTOR.BUS.ID.LUN, as list prints it")->required();
    inquire->callback([folders, address] {
        SetDeviceFolders(*folders);
        Inquire(*address);
    });
}
