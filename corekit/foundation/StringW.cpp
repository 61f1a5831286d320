#include "corekit/foundation/StringW.h"

#include "corekit/foundation/SharedTextImpl.h"
#include "corekit/foundation/TextConversion.h"
#include "corekit/platform/Variant.h"

template class corekit::detail::SharedText<StringW, WCHAR>;

namespace corekit::detail {
constinit EmptyText<WCHAR> emptyTextW;
static_assert(offsetof(EmptyText<WCHAR>, terminator) == sizeof(TextHeader<WCHAR>));
} // namespace corekit::detail

const StringW& AfxGetEmptyStringW()
{
    static constinit StringW empty;
    return empty;
}

int StringW::Replace(WCHAR from, WCHAR to)
{
    if (from == to) return 0;
    CopyBeforeWrite();
    int replaced = 0;
    for (WCHAR* p = m_pchData; p < m_pchData + GetLength(); ++p) {
        if (*p != from) continue;
        *p = to;
        ++replaced;
    }
    return replaced;
}

StringW::StringW(const char* p) { *this = p; }
StringW::StringW(const unsigned char* p) { *this = p; }
StringW::StringW(const VARIANT& value) : StringW(value.bstrVal) {}

StringW& StringW::operator=(const unsigned char* p) { return *this = reinterpret_cast<const char*>(p); }

StringW& StringW::operator=(const char* p)
{
    const int n = p ? corekit::detail::countedLength(std::strlen(p)) : 0;
    AllocBeforeWrite(n);
    if (n) _mbstowcsz(m_pchData, p, static_cast<std::size_t>(n) + 1);
    ReleaseBuffer(n ? -1 : 0);
    return *this;
}

void StringW::StoreToVariant(VARIANT& value) const
{
    VariantClear(&value);
    const BSTR text = SysAllocString(m_pchData);
    if (!text) throw std::bad_alloc();
    value.bstrVal = text;
    value.vt = VT_BSTR;
}

StringW::operator VARIANT() const
{
    VARIANT value;
    VariantInit(&value);
    StoreToVariant(value);
    return value;
}
