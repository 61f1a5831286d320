#include "corekit/platform/KeyboardLayouts.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Locale.h"
#include "corekit/platform/qt/display/XKeyboard.h"
#include "corekit/platform/qt/windows/LayoutChanges.h"

#include <algorithm>
#include <cstdlib>
#include <QGuiApplication>
#include <vector>

using namespace corekit::detail;

namespace {

constexpr WORD furtherLayouts = 0xF000; // high words from here on; the first layout of a language repeats it

bool windowsAreOnX()
{
    const char* const display = std::getenv("DISPLAY");
    if (!display || !*display) return false;
    return !qobject_cast<QGuiApplication*>(QCoreApplication::instance()) ||
           QGuiApplication::platformName() == QLatin1String("xcb");
}

// Null where there is one layout only. A display that has gone is looked for anew.
const XKeyboard* keyboard()
{
    static std::unique_ptr<XKeyboard> ofDisplay;
    if (!windowsAreOnX()) return nullptr;
    if (!ofDisplay || !ofDisplay->isConnected()) ofDisplay = XKeyboard::connect();
    return ofDisplay.get();
}

HKL handleOf(LANGID language, WORD high)
{
    return reinterpret_cast<HKL>(static_cast<UINT_PTR>(MAKELONG(language, high)));
}

// By group number.
std::vector<HKL> layouts()
{
    std::vector<HKL> all;
    const auto groups = keyboard() ? keyboard()->groups() : std::vector<XKeyboard::Group>();
    for (const XKeyboard::Group& group : groups) {
        const LANGID language = languageOfGroup(group);
        HKL handle = handleOf(language, language);
        if (std::ranges::find(all, handle) != all.end())
            handle = handleOf(language, static_cast<WORD>(furtherLayouts + all.size()));
        all.push_back(handle);
    }
    const LANGID own = LOWORD(GetSystemDefaultLCID());
    if (all.empty()) all.push_back(handleOf(own, own));
    return all;
}

HKL activeOf(const std::vector<HKL>& all)
{
    const std::size_t group = keyboard() ? keyboard()->activeGroup() : 0;
    return all[group < all.size() ? group : 0];
}

} // namespace

int GetKeyboardLayoutList(int size, HKL* list)
{
    const std::vector<HKL> all = layouts();
    if (size <= 0 || !list) return static_cast<int>(all.size());
    const std::size_t stored = std::min(all.size(), static_cast<std::size_t>(size));
    std::copy_n(all.begin(), stored, list);
    return static_cast<int>(stored);
}

HKL GetKeyboardLayout(DWORD) { return activeOf(layouts()); }

HKL ActivateKeyboardLayout(HKL layout, UINT)
{
    const std::vector<HKL> all = layouts();
    const HKL before = activeOf(all);
    if (!layout) return before;
    const auto found = std::ranges::find(all, layout);
    if (found == all.end()) {
        SetLastError(ERROR_INVALID_KEYBOARD_HANDLE);
        return nullptr;
    }
    if (keyboard()) keyboard()->lockGroup(static_cast<unsigned>(found - all.begin()));
    noticeActivation(before, layout);
    return before;
}
