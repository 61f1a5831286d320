// What a device answers to an inquiry, taken apart with a look at how much of it there is.
#pragma once

#include "corekit/devices/ScsiAdaptor.h"
#include "corekit/platform/ScsiPorts.h"

#include <span>

namespace corekit::detail {

enum class FieldPadding { keep, trim };

// Fields that the answer is too short for are empty, or 0. `claimed` stays as it is.
COREKIT_API void decodeInquiry(std::span<const BYTE> answer, FieldPadding padding, CScsiDeviceInfo& info);

// The record of a device in an adaptor's inquiry data.
struct InquiryRecord {
    int claimed = 0;
    std::span<const BYTE> answer;
};
// False if it has none. Whatever the offsets in `data` say, nothing outside of it is read, and each record
// once at most.
COREKIT_API bool findInquiryRecord(std::span<const BYTE> data, int bus, int id, int lun,
                                   InquiryRecord& record);

} // namespace corekit::detail
