#include "corekit/foundation/StringW.h"

#include "corekit/foundation/SharedTextImpl.h"

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
