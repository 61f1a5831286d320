#include "corekit/platform/posix/text/CaseTables.h"

#include <cwctype>
#include <locale.h>
#include <memory>

namespace corekit::detail {
namespace {

std::unique_ptr<const CaseTables> makeTables()
{
    auto tables = std::make_unique<CaseTables>();
    // A process that has set no locale would otherwise map ASCII only.
    const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    for (unsigned unit = 0; unit < 65536; ++unit) {
        const auto here = static_cast<char16_t>(unit);
        const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
        const auto within = [&](std::wint_t mapped) {
            return surrogate || mapped > 0xFFFF ? here : static_cast<char16_t>(mapped);
        };
        tables->upper[unit] = within(locale ? towupper_l(unit, locale) : std::towupper(unit));
        tables->lower[unit] = within(locale ? towlower_l(unit, locale) : std::towlower(unit));
    }
    if (locale) freelocale(locale);
    return tables;
}

} // namespace

const CaseTables& caseTables()
{
    static const std::unique_ptr<const CaseTables> tables = makeTables();
    return *tables;
}

} // namespace corekit::detail
