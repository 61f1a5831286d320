#include "corekit/commands/MacroProfile.h"

#include "corekit/stores/PropertyStore.h"

#include <algorithm>

namespace corekit {
namespace {

CString nameOf(const char* what, int button)
{
    CString name;
    name.Format("%s %d", what, button);
    return name;
}

CString textOf(CPropertyStore& store, const char* what, int button)
{
    CString text;
    store.GetValue(nameOf(what, button), text);
    return text;
}

} // namespace

std::vector<MacroButton> LoadMacroButtons(CPropertyStore& store)
{
    const int count = std::min(store.GetPropertyStoreValueCount() / valuesOfMacroButton, maximumMacroButtons);
    std::vector<MacroButton> buttons(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        MacroButton& button = buttons[static_cast<std::size_t>(i)];
        button.name = textOf(store, "Name", i);
        button.command = textOf(store, "Cmd", i);
        button.description = textOf(store, "Desc", i);
        int hasBitmap = 0;
        CByteArray bytes;
        if (store.GetValue(nameOf("Has Bmp", i), hasBitmap) && hasBitmap == 1 &&
            store.GetValue(nameOf("Bmp", i), bytes))
            button.bitmap.assign(bytes.GetData(), bytes.GetData() + bytes.GetSize());
    }
    return buttons;
}

void SaveMacroButtons(CPropertyStore& store, const std::vector<MacroButton>& buttons)
{
    while (store.GetPropertyStoreValueCount() > 0) store.DeleteValue(store.GetPropertyStoreValueName(0));
    for (int i = 0; const MacroButton& button : buttons) {
        store.SetValue(nameOf("Name", i), static_cast<const char*>(button.name));
        store.SetValue(nameOf("Cmd", i), static_cast<const char*>(button.command));
        store.SetValue(nameOf("Has Bmp", i), button.bitmap.empty() ? 0 : 1);
        store.SetBinaryValue(nameOf("Bmp", i), button.bitmap.data(),
                             static_cast<DWORD>(button.bitmap.size()));
        store.SetValue(nameOf("Desc", i), static_cast<const char*>(button.description));
        ++i;
    }
}

} // namespace corekit
