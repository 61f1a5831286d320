#include "examples/shared/Scripts.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/InputTest.h"
#include "corekit/unicode/ui/fonts/GlyphFont.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace {

// What stands behind the face that was chosen, for the characters that it lacks.
constexpr const char* behind[] = {"Noto Sans Hebrew",  "Noto Naskh Arabic", "CoreKit Devanagari",
                                  "CoreKit Bengali",   "CoreKit Tamil",     "Noto Sans Devanagari",
                                  "Noto Sans Bengali", "Noto Sans Tamil",   "DejaVu Sans"};

void MakeFont(GlyphScript script)
{
    const ShapingFace base((std::string("Noto Sans ") + NameOf(script)).c_str());
    if (!base.IsFound()) return;
    const std::string face = std::string("CoreKit ") + NameOf(script);
    const BuiltGlyphFont font = BuildGlyphFont(script, base, face);
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / (face + "." + std::to_string(getpid()) + ".ttf");
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(font.file.data()),
               static_cast<std::streamsize>(font.file.size()));
    if (AddFontResourceA(path.c_str()) > 0) RegisterGlyphFont(script, face);
    std::filesystem::remove(path);
}

} // namespace

void MakeIndicFonts()
{
    for (const GlyphScript script : {GlyphScript::Devanagari, GlyphScript::Bengali, GlyphScript::Tamil})
        MakeFont(script);
}

CFontDescriptor FontWithAllScripts(const std::string& face, int size)
{
    const CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    CFontDescriptor font;
    font.SetSize(-size);
    if (manager->IsFontValid(face.c_str())) font.AddFont(face.c_str());
    for (const char* other : behind)
        if (face != other && manager->IsFontValid(other)) font.AddFont(other);
    return font;
}

std::vector<std::string> FacesOfTheMachine()
{
    const CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    std::vector<std::string> faces;
    for (POSITION at = manager->GetFirstFontPosition(); at;) faces.emplace_back(manager->GetNextFont(at));
    std::sort(faces.begin(), faces.end());
    return faces;
}

bool SavePicture(HWND window, const std::string& file)
{
    const HBITMAP picture = corekit::test::PictureOf(window);
    const bool saved = picture && SaveBitmapAsPng(picture, file.c_str());
    if (picture) DeleteObject(picture);
    return saved;
}
