#include "corekit/unicode/ui/keyboards/PlatformLayouts.h"

#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/platform/Locale.h"

#include <algorithm>
#include <cstdlib>

namespace corekit::detail {

namespace {

// The text that the platform has for a language, empty if none.
template <int size>
CString localeText(HKL layout, DWORD type)
{
    char text[size];
    return GetLocaleInfoA(languageOf(layout), type, text, size) > 0 ? CString(text) : CString();
}

} // namespace

std::vector<HKL> platformLayouts()
{
    constexpr int mostLayouts = 1024;
    std::vector<HKL> layouts(mostLayouts);
    layouts.resize(static_cast<std::size_t>(GetKeyboardLayoutList(mostLayouts, layouts.data())));
    return layouts;
}

void activateLayoutOf(DWORD locale)
{
    if (locale == 0) return;
    const std::vector<HKL> layouts = platformLayouts();
    const auto found = std::ranges::find(layouts, LOWORD(locale), languageOf);
    if (found != layouts.end()) ActivateKeyboardLayout(*found, 0);
}

CString languageName(HKL layout) { return localeText<256>(layout, LOCALE_SENGLANGUAGE); }

int codePageOf(HKL layout) { return std::atoi(localeText<64>(layout, LOCALE_IDEFAULTANSICODEPAGE)); }

} // namespace corekit::detail
