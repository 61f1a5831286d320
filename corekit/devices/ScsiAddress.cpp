#include "corekit/devices/ScsiAddress.h"

#include "corekit/foundation/SystemHelpers.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {
// The text up to the dot, and what follows the dot; everything where there is none.
std::string takeField(std::string_view& rest)
{
    const std::size_t dot = std::min(rest.find('.'), rest.size());
    std::string field(rest.substr(0, dot));
    rest.remove_prefix(std::min(dot + 1, rest.size()));
    return field;
}
} // namespace

CString CScsiAddress::MakeAddressString() const
{
    return scFormatString("Adaptor=%d, bus=%d, id=%d, lun=%d", m_adaptor, m_bus, m_id, m_lun);
}

CString CScsiAddress::MakeRawString() const
{
    return scFormatString("%d.%d.%d.%d", m_adaptor, m_bus, m_id, m_lun);
}

void CScsiAddress::DecodeRawString(const char* text)
{
    std::string_view rest = text ? text : "";
    m_adaptor = std::atoi(takeField(rest).c_str());
    m_bus = std::atoi(takeField(rest).c_str());
    const std::string id = takeField(rest);
    m_id = std::atoi(id.c_str());
    m_lun = std::atoi(std::string(rest.substr(0, id.size())).c_str());
}
