// What the library brings along, on the chain of modules while it is loaded.
#include "AppletResources.h"

#include <corekit/framework/Module.h>
#include <corekit/platform/Buttons.h>
#include <corekit/platform/DialogTemplate.h>
#include <corekit/platform/Edits.h>
#include <corekit/platform/Statics.h>

#include <string_view>

namespace {
using namespace applet;

constexpr ResourceString texts[] = {
    {settingsName, "Script Upload"},
    {settingsInfo, "Which folder is watched, and where its scripts go"},
    {statusName, "Script Upload Status"},
    {statusInfo, "Whether the service runs"},
    {stateIs, "The service \"Script Upload\" is %1."},
};

constexpr DWORD shown = WS_CHILD | WS_VISIBLE, field = shown | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL;

constexpr DialogItem settingsItems[] = {
    {WC_STATICA, "&Folder:", -1, 7, 10, 50, 10, shown},
    {WC_EDITA, "", folderField, 60, 7, 160, 14, field},
    {WC_STATICA, "&Pattern:", -1, 7, 30, 50, 10, shown},
    {WC_EDITA, "", patternField, 60, 27, 160, 14, field},
    {WC_STATICA, "&Server:", -1, 7, 50, 50, 10, shown},
    {WC_EDITA, "", serverField, 60, 47, 160, 14, field},
    {WC_STATICA, "&User:", -1, 7, 70, 50, 10, shown},
    {WC_EDITA, "", userField, 60, 67, 160, 14, field},
    {WC_BUTTONA, "OK", 1, 116, 90, 50, 14, shown | WS_TABSTOP | BS_DEFPUSHBUTTON},
    {WC_BUTTONA, "Cancel", 2, 170, 90, 50, 14, shown | WS_TABSTOP | BS_PUSHBUTTON},
};
constexpr DialogTemplate dialogs[] = {{settingsDialog, "Script Upload", 227, 111,
                                       WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, settingsItems}};

// An arrow upwards.
constexpr std::string_view arrow = R"(/* XPM */
"16 16 2 1",
"  c None",
"o c #2E6FBE",
"                ",
"       oo       ",
"      oooo      ",
"     oooooo     ",
"    oooooooo    ",
"   oooooooooo   ",
"  oooooooooooo  ",
"      oooo      ",
"      oooo      ",
"      oooo      ",
"      oooo      ",
"      oooo      ",
"      oooo      ",
"                ",
"  oooooooooooo  ",
"                "
)";

AFX_EXTENSION_MODULE module;

[[gnu::constructor]] void Start()
{
    static const BinaryResource pictures[] = {{"#3", "#5001", std::as_bytes(std::span(arrow))}};
    module.strings = texts;
    module.resources = pictures;
    module.dialogs = dialogs;
    if (AfxInitExtensionModule(module, nullptr)) new CDynLinkLibrary(module);
}

[[gnu::destructor]] void Stop() { AfxTermExtensionModule(module); }

} // namespace
