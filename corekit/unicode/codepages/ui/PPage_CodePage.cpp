#include "corekit/unicode/codepages/ui/PPage_CodePage.h"

#include "corekit/framework/ui/PropertySheet.h"
#include "corekit/platform/CodePages.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/resources/dialogs/CodePage.h"
#include "corekit/unicode/codepages/CodePageConversion.h"
#include "corekit/unicode/codepages/CodePageNames.h"

#include <cstdlib>

IMPLEMENT_DYNAMIC(PPage_CodePage, CAXPropertyPage)

namespace {
constexpr int listControl = 1005;
constexpr DWORD installedPages = 1;
constinit PPage_CodePage* filling = nullptr; // the page that a code page is told to
} // namespace

BEGIN_MESSAGE_MAP(PPage_CodePage, CAXPropertyPage)
ON_LBN_SELCHANGE(listControl, &PPage_CodePage::OnSelection)
END_MESSAGE_MAP()

PPage_CodePage::PPage_CodePage(int* codePage)
    : CAXPropertyPage(corekit::detail::dialogs::codePage.id), m_codePage(codePage)
{
}

int PPage_CodePage::TakeCodePage(char* number)
{
    const int codePage = std::atoi(number);
    filling->Add(codePage, GetCodePageName(static_cast<UINT>(codePage)));
    return 1;
}

void PPage_CodePage::Add(int codePage, const CString& name)
{
    const LRESULT row = SendDlgItemMessage(listControl, LB_ADDSTRING, 0,
                                           reinterpret_cast<LPARAM>(static_cast<const char*>(name)));
    SendDlgItemMessage(listControl, LB_SETITEMDATA, static_cast<WPARAM>(row), codePage);
    if (codePage == *m_codePage) SendDlgItemMessage(listControl, LB_SETCURSEL, static_cast<WPARAM>(row));
}

void PPage_CodePage::LoadPage()
{
    filling = this;
    EnumSystemCodePagesA(TakeCodePage, installedPages);
    filling = nullptr;
    for (int k = 0; k < cconvGetCPCount(); ++k) Add(cconvGetCodePage(k), cconvGetCPName(k));
    if (SendDlgItemMessage(listControl, LB_GETCURSEL) >= 0) return;
    for (LRESULT row = SendDlgItemMessage(listControl, LB_GETCOUNT) - 1; row >= 0; --row) {
        if (SendDlgItemMessage(listControl, LB_GETITEMDATA, static_cast<WPARAM>(row)) !=
            static_cast<LRESULT>(GetACP()))
            continue;
        SendDlgItemMessage(listControl, LB_SETCURSEL, static_cast<WPARAM>(row));
        return;
    }
}

int PPage_CodePage::CommitPage()
{
    const LRESULT row = SendDlgItemMessage(listControl, LB_GETCURSEL);
    if (row >= 0)
        *m_codePage =
            static_cast<int>(SendDlgItemMessage(listControl, LB_GETITEMDATA, static_cast<WPARAM>(row)));
    return 1;
}

void AddCodePagePropertyPage(CPropertySheet& sheet, int* codePage, UINT)
{
    sheet.AddPage(new PPage_CodePage(codePage));
}
