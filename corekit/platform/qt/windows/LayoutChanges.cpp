#include "corekit/platform/qt/windows/LayoutChanges.h"

#include "corekit/platform/Input.h"
#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/platform/Locale.h"
#include "corekit/platform/qt/windows/ApplicationFilter.h"

#include <QKeyEvent>

#include <cstdlib>
#include <utility>

namespace corekit::detail {

namespace {

constexpr quint32 unknownGroup = ~0u;

constinit LayoutListener layoutListener = nullptr;
constinit HKL lastLayout = nullptr; // that was told; null: none yet
constinit quint32 lastGroup = 0;    // of the last key

// The set of the code page that the layout's language writes in; that of Western texts for one without.
WPARAM characterSetOf(HKL layout)
{
    struct Pair {
        int page;
        WPARAM set;
    };
    static constexpr Pair pairs[] = {{874, 222},  {932, 128},  {936, 134},  {949, 129},  {950, 136},
                                     {1250, 238}, {1251, 204}, {1253, 161}, {1254, 162}, {1255, 177},
                                     {1256, 178}, {1257, 186}, {1258, 163}};
    char page[8] = "";
    GetLocaleInfoA(LOWORD(reinterpret_cast<UINT_PTR>(layout)), LOCALE_IDEFAULTANSICODEPAGE, page,
                   sizeof page);
    for (const Pair& pair : pairs)
        if (pair.page == std::atoi(page)) return pair.set;
    return 0;
}

void tell(HKL layout, HWND window)
{
    if (std::exchange(lastLayout, layout) == layout) return;
    if (layoutListener) layoutListener(0, layout);
    if (!IsWindow(window)) return;
    MSG change{window,        WM_INPUTLANGCHANGE, characterSetOf(layout), reinterpret_cast<LPARAM>(layout),
               messageTime(), pointerPlace()};
    offerAndSend(change);
}

} // namespace

LayoutListener setLayoutListener(LayoutListener listener) { return std::exchange(layoutListener, listener); }

void noticeLayout(const QKeyEvent& event, HWND window)
{
    const quint32 group = (event.nativeModifiers() >> 13) & 3;
    if (std::exchange(lastGroup, group) != group) tell(GetKeyboardLayout(0), window);
}

// Keys that were pressed before may still come with the former group, so each group is looked up anew.
void noticeActivation(HKL before, HKL layout)
{
    if (!lastLayout) lastLayout = before;
    lastGroup = unknownGroup;
    tell(layout, GetFocus());
}

} // namespace corekit::detail
