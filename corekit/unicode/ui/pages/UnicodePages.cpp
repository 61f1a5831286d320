#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/PPage_Miscellaneous.h"
#include "corekit/unicode/ui/pages/PPage_Unicode_General.h"
#include "corekit/unicode/ui/pages/PPage_Unicode_Languages.h"
#include "corekit/unicode/ui/UnicodeManager.h"

void CUnicodeManager::AddPropertyPages(CAXPropertySheet& sheet)
{
    sheet.AddPage(new PPage_Unicode_General);
    sheet.AddPage(new PPage_Unicode_Languages);
    sheet.AddPage(new PPage_Miscellaneous);
}
