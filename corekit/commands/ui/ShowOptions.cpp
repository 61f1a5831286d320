// How a category opens its dialog.
#include "corekit/commands/ui/OptionsCategory.h"
#include "corekit/commands/ui/OptionsPropertySheet.h"
#include "corekit/commands/ui/PPage_OptionsMgrBlank.h"
#include "corekit/commands/ui/SoloCategoryPropSheet.h"

int COptionsCategory::ShowOptionsDialog(UINT captionId, CWnd* parent, CLogTarget* log)
{
    if (!HasChildren()) return DoSoloCategory(captionId, parent);
    COptionsPropertySheet sheet(captionId, parent, *this, log);
    sheet.SetAutoDeleteMode(1);
    sheet.AddPage(new PPage_OptionsMgrBlank); // a sheet needs a page until a category is picked
    return sheet.DoModal() == IDOK;
}

int COptionsCategory::DoSoloCategory(UINT captionId, CWnd* parent)
{
    if (!CheckSelectOK(parent)) return 0;
    CSoloCategoryPropSheet sheet(captionId, parent, *this);
    return sheet.DoModal() == IDOK;
}
