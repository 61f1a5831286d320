#include "corekit/unicode/codepages/CodePageNames.h"

#include "corekit/platform/CodePages.h"
#include "corekit/resources/Messages.h"
#include "corekit/unicode/codepages/CodePageNameRows.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace corekit::detail;

struct CharSetRow {
    UINT charSet;
    UINT codePage;
};

constexpr CharSetRow charSetRows[] = {
    {0, 1252},   {77, 10000}, {128, 932},  {129, 949},  {130, 1361}, {134, 936}, {136, 950},  {161, 1253},
    {162, 1254}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874}, {238, 1250}, {255, 850},
};

} // namespace

CString GetCodePageName(UINT codePage)
{
    static_assert(std::ranges::is_sorted(codePageNameRows, {}, &CodePageNameRow::codePage));
    const auto row = std::ranges::lower_bound(codePageNameRows, codePage, {}, &CodePageNameRow::codePage);
    CString name;
    if (row != std::end(codePageNameRows) && row->codePage == codePage)
        name.LoadString(row->textId);
    else
        name.Format(message::codePageUnrecognised, codePage);
    return name;
}

UINT ConvertCharSetToCodePage(UINT charSet)
{
    const auto row = std::ranges::find(charSetRows, charSet, &CharSetRow::charSet);
    return row != std::end(charSetRows) ? row->codePage : GetACP();
}
