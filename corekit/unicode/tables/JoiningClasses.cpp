#include "corekit/unicode/tables/JoiningClasses.h"

#include "corekit/unicode/tables/ArabicJoiningRows.h"

namespace corekit::detail {

namespace {
constexpr JoiningTable arabic = makeJoiningTable(0x0600);
constexpr JoiningTable urduIndic = makeJoiningTable(0xE300);
} // namespace

template <>
constinit const JoiningEntry (&JoiningClasses<0x0600>::m_tbl)[256] = arabic.rows;
template <>
constinit const JoiningEntry (&JoiningClasses<0xE300>::m_tbl)[256] = urduIndic.rows;

} // namespace corekit::detail
