// What lists of faces and keyboards ask of the manager.
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/FontSignature.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"

CString CFontDescriptor::GetFontForLocale(WORD langId) const
{
    CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    CFontSignature wanted, held;
    manager->GetLocaleFontSignature(langId, wanted);
    for (int i = 0; i < GetCount(); ++i) {
        CFontMapInfo* const info = manager->GetFontMapInfo(GetFont(i));
        if (!info) break;
        info->GetSignature(held);
        if (held.Contains(wanted)) return GetFont(i);
    }
    return GetFont(0);
}

void CKBLayout::ActivateHelper(DWORD locale)
{
    CUnicodeManager::GetObjectA()->ActivateHelperKeyboard(locale);
}
