#include "corekit/foundation/StringA.h"

#include "corekit/foundation/SharedTextImpl.h"

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
