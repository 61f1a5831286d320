#include "corekit/unicode/ui/keyboards/KeyboardList.h"

#include "corekit/unicode/ui/keyboards/KBT_Devanagari.h"
#include "corekit/unicode/ui/keyboards/KBT_Welsh.h"
#include "corekit/unicode/ui/keyboards/PlatformLayouts.h"
#include "corekit/unicode/ui/keyboards/SystemKeyboard.h"
#include "corekit/unicode/ui/keyboards/TableKeyboard.h"

#include <utility>

namespace corekit::detail {

namespace {

constexpr WORD portugueseOfBrazil = 0x416, thai = 0x41E;

template <class Keyboard, class... Arguments>
void add(KeyboardList& keyboards, Arguments&&... arguments)
{
    keyboards.push_back(std::make_unique<Keyboard>(std::forward<Arguments>(arguments)...));
}

void addFor(KeyboardList& keyboards, HKL layout)
{
    switch (languageOf(layout)) {
    case portugueseOfBrazil:
        return add<KBT_PortugueseExtension>(keyboards, layout);
    case thai:
        return add<KBT_ThaiExtension>(keyboards, layout);
    default:
        return add<CSystemKeyboard>(keyboards, layout);
    }
}

} // namespace

KeyboardList makeKeyboards(std::span<const HKL> layouts)
{
    KeyboardList keyboards;
    for (const HKL layout : layouts) addFor(keyboards, layout);
    add<KBT_Devanagari>(keyboards, 0);
    add<KBT_Devanagari>(keyboards, 1);
    add<KBT_Bengali>(keyboards);
    add<KBT_Persian>(keyboards);
    add<KBT_Arabic>(keyboards);
    add<KBT_Urdu>(keyboards);
    add<KBT_UrduIndian>(keyboards);
    add<KBT_Hebrew>(keyboards);
    add<KBT_Welsh>(keyboards);
    add<KBT_Tamil>(keyboards);
    add<KBT_BengaliInscript>(keyboards);
    add<KBT_Assamme>(keyboards);
    return keyboards;
}

} // namespace corekit::detail
