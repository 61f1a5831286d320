#include "corekit/unicode/ui/UsualFonts.h"

#include "corekit/unicode/ui/UnicodeManager.h"

namespace {

// The first has Latin and the forms of every Arabic letter, Urdu's among them, which few faces that also have
// Latin do.
constexpr const char* faces[] = {
    "Amiri",         "Noto Serif Hebrew",    "CoreKit Devanagari", "CoreKit Bengali",
    "CoreKit Tamil", "Noto Sans Devanagari", "Noto Sans Bengali",  "Noto Sans Tamil",
    "DejaVu Sans",
};

} // namespace

CFontDescriptor UsualFonts(int size)
{
    const CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    CFontDescriptor fonts;
    fonts.SetSize(size);
    for (const char* const face : faces)
        if (manager->IsFontValid(face)) fonts.AddFont(face);
    return fonts;
}
