#include "Doctor.h"

#include "corekit/platform/GdiContexts.h"
#include "corekit/platform/GdiFonts.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <cstdlib>
#include <set>

namespace {

struct Script {
    const char* name;
    int subset; // its bit
    const char* package;
};
constexpr Script scripts[] = {
    {"Latin", 0, "fonts-dejavu-core"},   {"Hebrew", 11, "fonts-noto-core"},
    {"Arabic", 13, "fonts-hosny-amiri"}, {"Devanagari", 15, "fonts-noto-core"},
    {"Bengali", 16, "fonts-noto-core"},  {"Tamil", 20, "fonts-noto-core"},
};

int AddFace(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM names)
{
    reinterpret_cast<std::set<std::string>*>(names)->insert(font->lfFaceName);
    return 1;
}

bool Has(CUnicodeManager& manager, const std::string& face, int subset)
{
    DWORD usb[4];
    manager.GetFontMapInfo(face.c_str())->GetSignature().GetUsb(usb);
    return usb[subset / 32] >> subset % 32 & 1;
}

Finding FindFaces(CUnicodeManager& manager, const std::set<std::string>& faces, const Script& script)
{
    std::string first;
    int count = 0;
    for (const std::string& face : faces) {
        if (!Has(manager, face, script.subset)) continue;
        if (++count == 1) first = face;
    }
    const std::string found =
        count == 0 ? "no face" : first + (count == 1 ? "" : " and " + std::to_string(count - 1) + " more");
    return {std::string(script.name) + " faces", count > 0, found, script.package};
}

Finding FindDisplay()
{
    const char* const names[] = {"WAYLAND_DISPLAY", "DISPLAY"};
    for (const char* const name : names)
        if (const char* const value = std::getenv(name))
            return {"display", ToolkitHasDisplay(), std::string(name) + "=" + value,
                    "a display that answers"};
    return {"display", ToolkitHasDisplay(), "none is named",
            "run on a desktop, or under xvfb-run (package xvfb)"};
}

} // namespace

std::vector<Finding> FindFacesAndDisplay()
{
    if (!StartToolkit()) return {{"window toolkit", false, "does not start", "libqt6widgets6"}};
    std::vector<Finding> findings;
    std::set<std::string> faces;
    const HDC context = CreateCompatibleDC(nullptr);
    EnumFontsA(context, nullptr, AddFace, reinterpret_cast<LPARAM>(&faces));
    DeleteDC(context);
    CUnicodeManager& manager = *CUnicodeManager::Initialise(FALSE);
    for (const Script& script : scripts) findings.push_back(FindFaces(manager, faces, script));
    findings.push_back(FindDisplay());
    return findings;
}
