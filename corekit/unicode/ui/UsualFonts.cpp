#include "corekit/unicode/ui/UsualFonts.h"

#include "corekit/unicode/ui/UnicodeManager.h"

namespace {

// Letters of like size at one height of their cells.
constexpr const char* faces[] = {
    "Noto Sans",     "Noto Naskh Arabic",    "Noto Serif Hebrew", "CoreKit Devanagari", "CoreKit Bengali",
    "CoreKit Tamil", "Noto Sans Devanagari", "Noto Sans Bengali", "Noto Sans Tamil",    "DejaVu Sans",
};
// Its cells are four times as high as its letters, and so would be every line.
constexpr const char* arabicWithoutNoto = "Amiri";

} // namespace

CFontDescriptor UsualFonts(int size)
{
    const CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    CFontDescriptor fonts;
    fonts.SetSize(size);
    for (const char* const face : faces)
        if (manager->IsFontValid(face)) fonts.AddFont(face);
    if (!manager->IsFontValid("Noto Naskh Arabic") && manager->IsFontValid(arabicWithoutNoto))
        fonts.AddFont(arabicWithoutNoto);
    return fonts;
}
