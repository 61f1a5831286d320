#include "corekit/devices/ScsiInquiry.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {
namespace {

// A structure's fixed part; false where the data ends before it does.
template <class Head>
bool readAt(std::span<const BYTE> data, std::size_t offset, std::size_t size, Head& head)
{
    if (offset > data.size() || data.size() - offset < size) return false;
    std::memcpy(&head, data.data() + offset, size);
    return true;
}

CString field(std::span<const BYTE> answer, std::size_t from, std::size_t width, FieldPadding padding)
{
    if (from >= answer.size()) return {};
    const auto bytes = answer.subspan(from, std::min(width, answer.size() - from));
    // A zero ends the field early.
    const auto end = std::ranges::find(bytes, BYTE{0});
    CString text(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(end - bytes.begin()));
    if (padding == FieldPadding::trim) text.TrimRight(" ");
    return text;
}

} // namespace

void decodeInquiry(std::span<const BYTE> answer, FieldPadding padding, CScsiDeviceInfo& info)
{
    const auto byte = [&](std::size_t at) { return at < answer.size() ? answer[at] : BYTE{0}; };
    info.m_type = byte(0) & 31;
    info.m_typeModifier = byte(1) & 127;
    info.m_removable = byte(1) >> 7;
    info.m_vendor = field(answer, 8, 8, padding);
    info.m_product = field(answer, 16, 16, padding);
    info.m_revision = field(answer, 32, 4, padding);
}

bool findInquiryRecord(std::span<const BYTE> data, int bus, int id, int lun, InquiryRecord& record)
{
    constexpr std::size_t head = offsetof(SCSI_INQUIRY_DATA, InquiryData);
    if (data.empty() || bus < 0 || bus >= data[0]) return false;
    SCSI_BUS_DATA busData;
    const std::size_t place =
        offsetof(SCSI_ADAPTER_BUS_INFO, BusData) + static_cast<std::size_t>(bus) * sizeof busData;
    if (!readAt(data, place, sizeof busData, busData)) return false;
    SCSI_INQUIRY_DATA entry;
    // A chain of more records than there is room for goes in a circle.
    std::size_t left = data.size() / head;
    for (std::size_t at = busData.InquiryDataOffset; at != 0 && left > 0;
         at = entry.NextInquiryDataOffset, --left) {
        if (!readAt(data, at, head, entry)) return false;
        if (entry.TargetId != id || entry.Lun != lun) continue;
        const std::size_t there = data.size() - at - head;
        record = {entry.DeviceClaimed,
                  data.subspan(at + head, std::min<std::size_t>(entry.InquiryDataLength, there))};
        return true;
    }
    return false;
}

} // namespace corekit::detail
