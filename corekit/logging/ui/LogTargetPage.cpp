#include "corekit/framework/ui/PropertySheet.h"
#include "corekit/logging/LogTarget.h"
#include "corekit/logging/ui/PPage_LoggingDetails.h"

void CLogTarget::AddPropertyPage(CPropertySheet& sheet, unsigned int captionId, int* enabled,
                                 unsigned long* mask, int* days)
{
    sheet.AddPage(new PPage_LoggingDetails(captionId, enabled, mask, days));
}
