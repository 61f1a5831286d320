#include "corekit/logging/ui/DLG_ProgressTwinCancel.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/dialogs/Progress.h"

#include <utility>

IMPLEMENT_DYNAMIC(DLG_ProgressTwinCancel, CDialog)

DLG_ProgressTwinCancel::DLG_ProgressTwinCancel(unsigned int titleId)
    : DLG_ProgressTwinCancel(LoadResourceString(titleId))
{
}
DLG_ProgressTwinCancel::DLG_ProgressTwinCancel(const char* title) : ProgressTwinBase(title) {}

int DLG_ProgressTwinCancel::Create(CWnd* parent)
{
    return CreateOver(corekit::detail::dialogs::progressTwinCancel.id, parent);
}

int DLG_ProgressTwinCancel::CheckCancelButton()
{
    PumpMessages();
    return std::exchange(m_cancelled, 0);
}
