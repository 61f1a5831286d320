// Arbitrary bytes as an adaptor's inquiry data, as a device's answer, and as an address.
#include "corekit/devices/ScsiInquiry.h"
#include "corekit/devices/ScsiAddress.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace corekit::detail;
    const std::span<const BYTE> bytes(data, size);
    CScsiDeviceInfo info;
    for (const FieldPadding padding : {FieldPadding::keep, FieldPadding::trim}) {
        decodeInquiry(bytes, padding, info);
        if (info.m_vendor.GetLength() > 8 || info.m_product.GetLength() > 16 ||
            info.m_revision.GetLength() > 4)
            std::abort();
    }
    for (int id = 0; id < 16; ++id) {
        InquiryRecord record;
        if (!findInquiryRecord(bytes, id & 1, id, 0, record)) continue;
        if (!record.answer.empty() &&
            (record.answer.data() < data || record.answer.data() + record.answer.size() > data + size))
            std::abort();
        decodeInquiry(record.answer, FieldPadding::trim, info);
    }
    CScsiAddress address;
    address.DecodeRawString(std::string(reinterpret_cast<const char*>(data), size).c_str());
    address.MakeAddressString();
    return 0;
}
