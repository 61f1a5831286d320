// How the user chooses fonts: one, or several.
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/fontdialogs/DLG_FD_Multiple.h"
#include "corekit/unicode/ui/fontdialogs/DLG_FD_Single.h"

int CFontDescriptor::DoSelectFontDialog(CWnd* parent, int readOnly)
{
    if (GetCount() >= 2) return DLG_FD_Multiple(parent, *this, readOnly).DoModal() == IDOK;
    CFontDescriptor chosen(*this);
    INT_PTR answer = DLG_FD_Single(parent, chosen, readOnly).DoModal();
    if (answer == DLG_FD_Single::wantsMultiple) answer = DLG_FD_Multiple(parent, chosen, readOnly).DoModal();
    if (answer != IDOK) return 0;
    *this = chosen;
    return 1;
}
