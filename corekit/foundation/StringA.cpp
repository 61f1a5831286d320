#include "corekit/foundation/StringA.h"

#include "corekit/foundation/SharedTextImpl.h"
#include "corekit/foundation/TextConversion.h"

template class corekit::detail::SharedText<StringA, char>;

namespace corekit::detail {
constinit EmptyText<char> emptyTextA;
static_assert(offsetof(EmptyText<char>, terminator) == sizeof(TextHeader<char>));
} // namespace corekit::detail

const StringA& AfxGetEmptyStringA()
{
    static constinit StringA empty;
    return empty;
}

namespace {

// Room for text of n wide units in any code page.
int narrowRoom(int n) { return corekit::detail::countedLength(static_cast<std::size_t>(std::max(n, 0)) * 4); }

} // namespace

StringA::StringA(const WCHAR* p) { *this = p; }

StringA& StringA::operator=(const WCHAR* p)
{
    const int n = p ? corekit::detail::countedLength(corekit::detail::textLength(p)) : 0;
    AllocBeforeWrite(narrowRoom(n));
    if (n) _wcstombsz(m_pchData, p, static_cast<std::size_t>(n) + 1);
    ReleaseBuffer(n ? -1 : 0);
    return *this;
}

void StringA::AssignCopy(int n, const WCHAR* p)
{
    AllocBeforeWrite(narrowRoom(n));
    if (n > 0) _wcstombsz(m_pchData, p, static_cast<std::size_t>(n));
    ReleaseBuffer(n > 0 ? -1 : 0);
}

void StringA::ConcatCopy(int n1, const char* p1, int n2, const WCHAR* p2)
{
    n1 = std::max(n1, 0);
    if (n1 == 0 && n2 <= 0) return;
    AllocBuffer(corekit::detail::countedLength(static_cast<std::size_t>(n1) +
                                               static_cast<std::size_t>(narrowRoom(n2))));
    std::copy_n(p1, n1, m_pchData);
    m_pchData[n1] = '\0';
    if (n2 > 0) _wcstombsz(m_pchData + n1, p2, static_cast<std::size_t>(n2));
    ReleaseBuffer(-1);
}

void StringA::ConcatCopy(int n1, const WCHAR* p1, int n2, const char* p2)
{
    n2 = std::max(n2, 0);
    if (n1 <= 0 && n2 == 0) return;
    AllocBuffer(corekit::detail::countedLength(static_cast<std::size_t>(narrowRoom(n1)) +
                                               static_cast<std::size_t>(n2)));
    const int converted = n1 > 0 ? _wcstombsz(m_pchData, p1, static_cast<std::size_t>(n1)) - 1 : 0;
    std::copy_n(p2, n2, m_pchData + converted);
    m_pchData[converted + n2] = '\0';
    ReleaseBuffer(-1);
}

StringA StringA::Narrowed(WCHAR ch)
{
    const std::string bytes = corekit::detail::narrowText({&ch, 1});
    return StringA(bytes.data(), static_cast<int>(bytes.size()));
}
