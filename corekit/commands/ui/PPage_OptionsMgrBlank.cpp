#include "corekit/commands/ui/PPage_OptionsMgrBlank.h"

#include "corekit/resources/dialogs/OptionsPages.h"

IMPLEMENT_DYNAMIC(PPage_OptionsMgrBlank, CAXPropertyPage)

PPage_OptionsMgrBlank::PPage_OptionsMgrBlank() : CAXPropertyPage(corekit::detail::dialogs::optionsBlank.id) {}
