#include "corekit/logging/ui/DLG_ProgressTwin.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/dialogs/Progress.h"

IMPLEMENT_DYNAMIC(DLG_ProgressTwin, CDialog)

DLG_ProgressTwin::DLG_ProgressTwin(unsigned int titleId) : DLG_ProgressTwin(LoadResourceString(titleId)) {}
DLG_ProgressTwin::DLG_ProgressTwin(const char* title) : ProgressTwinBase(title) {}

int DLG_ProgressTwin::Create(CWnd* parent)
{
    return CreateOver(corekit::detail::dialogs::progressTwin.id, parent);
}
