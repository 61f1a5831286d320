#include "corekit/foundation/KeyNames.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/KeyNameTable.h"
#include "corekit/platform/Keyboard.h"

#include <algorithm>

namespace {

bool isLetterOrDigit(unsigned key) { return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'); }

CString virtualKeyName(WORD key)
{
    constexpr WORD f1 = 112, f12 = 123;
    if (key >= f1 && key <= f12) {
        CString name;
        name.Format("F%d", key - f1 + 1);
        return name;
    }
    for (const auto& row : corekit::detail::acceleratorKeyNameRows())
        if (row.key == key) return LoadResourceString(row.textId);
    constexpr LONG extended = 1 << 24;
    char name[256] = "";
    GetKeyNameTextA(static_cast<LONG>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC) << 16) | extended, name,
                    sizeof name);
    return name;
}

} // namespace

int GetKeyNameFromVirtual(unsigned int virtualKey, CString& name)
{
    if (isLetterOrDigit(virtualKey)) {
        name = CString(static_cast<char>(virtualKey));
        return 1;
    }
    const auto names = corekit::detail::keyNameRows();
    const auto found = std::ranges::lower_bound(names, virtualKey, {}, &corekit::detail::KeyName::key);
    if (found == names.end() || found->key != virtualKey) {
        name.Format("Virtual Key - %d", static_cast<int>(virtualKey));
        return 0;
    }
    name = found->name;
    return found->forAccelerators;
}

CString GetAcceleratorKeyName(tagACCEL accelerator)
{
    CString name;
    if (accelerator.fVirt & FVIRTKEY)
        name = virtualKeyName(accelerator.key);
    else
        name.Format("'%c'", accelerator.key);
    if (accelerator.fVirt & FALT) name = "Alt + " + name;
    if (accelerator.fVirt & FCONTROL) name = "Ctrl + " + name;
    if (accelerator.fVirt & FSHIFT) name = "Shift + " + name;
    return name;
}
