#include "corekit/platform/posix/devices/ScsiHosts.h"

#include "corekit/platform/DeviceFolders.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <tuple>

namespace corekit::detail {
namespace {
namespace fs = std::filesystem;

constexpr unsigned largestByte = 255;

fs::path systemFolder(const char* below) { return fs::path(GetDeviceFolders().system) / below; }

std::string wholeOf(const fs::path& file, std::size_t most)
{
    std::string text(most, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(text.data(), static_cast<std::streamsize>(most));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
    return text;
}

std::string lineOf(const fs::path& file)
{
    std::string text = wholeOf(file, 64);
    return text.substr(0, text.find('\n'));
}

DWORD numberOf(const fs::path& file, DWORD otherwise)
{
    const std::string text = lineOf(file);
    DWORD number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() ? number : otherwise;
}

template <class Visit>
void eachIn(const fs::path& folder, Visit visit)
{
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure))
        visit(entry->path());
}

// "2:0:5:0": host, bus, id and lun.
struct Place {
    unsigned host, bus, id, lun;
};
std::optional<Place> placeIn(const std::string& name)
{
    Place place{};
    int end = 0;
    const int read =
        std::sscanf(name.c_str(), "%u:%u:%u:%u%n", &place.host, &place.bus, &place.id, &place.lun, &end);
    if (read != 4 || static_cast<std::size_t>(end) != name.size()) return {};
    return place;
}

// Put together from the kernel's files where it does not keep the answer itself.
Inquiry inquiryFrom(const fs::path& unit)
{
    Inquiry inquiry{};
    inquiry[0] = static_cast<BYTE>(numberOf(unit / "type", 0x1F) & 0x1F);
    inquiry[4] = static_cast<BYTE>(inquiry.size() - 5);
    const auto put = [&](const char* file, std::size_t at, std::size_t width) {
        std::string text = lineOf(unit / file);
        text.resize(width, ' ');
        std::memcpy(inquiry.data() + at, text.data(), width);
    };
    put("vendor", 8, 8);
    put("model", 16, 16);
    put("rev", 32, 4);
    return inquiry;
}

ScsiUnit unitAt(const Place& place, const fs::path& folder)
{
    std::error_code gone;
    ScsiUnit unit{place.bus, place.id, place.lun, fs::exists(folder / "driver", gone), {}, 0};
    const std::string kept = wholeOf(folder / "inquiry", unit.inquiry.size());
    if (kept.empty()) {
        unit.inquiry = inquiryFrom(folder);
        unit.inquirySize = static_cast<DWORD>(unit.inquiry.size());
    } else {
        std::memcpy(unit.inquiry.data(), kept.data(), kept.size());
        unit.inquirySize = static_cast<DWORD>(kept.size());
    }
    return unit;
}

} // namespace

std::vector<unsigned> scsiHosts()
{
    std::vector<unsigned> hosts;
    eachIn(systemFolder("class/scsi_host"), [&](const fs::path& entry) {
        unsigned number = 0;
        int end = 0;
        const std::string name = entry.filename().string();
        if (std::sscanf(name.c_str(), "host%u%n", &number, &end) == 1 &&
            static_cast<std::size_t>(end) == name.size())
            hosts.push_back(number);
    });
    std::ranges::sort(hosts);
    return hosts;
}

std::vector<ScsiUnit> scsiUnits(unsigned host)
{
    std::vector<ScsiUnit> units;
    eachIn(systemFolder("bus/scsi/devices"), [&](const fs::path& entry) {
        const auto place = placeIn(entry.filename().string());
        if (!place || place->host != host || std::max({place->bus, place->id, place->lun}) > largestByte)
            return;
        units.push_back(unitAt(*place, entry));
    });
    std::ranges::sort(units, {},
                      [](const ScsiUnit& unit) { return std::tuple(unit.bus, unit.id, unit.lun); });
    return units;
}

ScsiLimits scsiLimits(unsigned host)
{
    constexpr DWORD sector = 512, usualSectors = 1024, usualPieces = 128;
    const fs::path folder = systemFolder("class/scsi_host") / ("host" + std::to_string(host));
    const DWORD sectors = numberOf(folder / "max_sectors", usualSectors);
    return {std::min<DWORD>(sectors, 0xFFFFFFFF / sector) * sector,
            std::max<DWORD>(numberOf(folder / "sg_tablesize", usualPieces), 1)};
}

std::string scsiDevice(unsigned host, unsigned bus, unsigned id, unsigned lun)
{
    char name[64];
    std::snprintf(name, sizeof name, "%u:%u:%u:%u", host, bus, id, lun);
    std::string device;
    eachIn(systemFolder("bus/scsi/devices") / name / "scsi_generic", [&](const fs::path& entry) {
        device = GetDeviceFolders().devices + "/" + entry.filename().string();
    });
    return device;
}

} // namespace corekit::detail
