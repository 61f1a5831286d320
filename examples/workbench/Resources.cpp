#include "Resources.h"

#include "ButtonPictures.h"
#include "Commands.h"

#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/framework/Module.h"
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Statics.h"
#include "corekit/platform/WindowStyles.h"

namespace {

// The prompt, and behind the newline the tip.
constexpr ResourceString texts[] = {
    {paneState, "Stopped"},
    {paneProgress, "      100 %      "},
    {commandNew, "Begins a new story.\nNew"},
    {commandOpen, "Opens a rundown.\nOpen"},
    {commandSave, "Saves the rundown.\nSave"},
    {commandPlay, "Lets the text run.\nPlay"},
    {commandStop, "Stops the text.\nStop"},
    {commandFaster, "Lets the text run faster.\nFaster"},
    {commandSlower, "Lets the text run slower.\nSlower"},
    {commandMark, "Marks the place.\nMark"},
    {commandPictures, "Shows pictures.\nPictures"},
    {commandTable, "Shows a table.\nTable"},
    {commandNames, "Shows names only.\nNames"},
    {commandCustomise, "Changes keys and tool bars.\nCustomise"},
    {commandClock, "Shows a clock at the edge of the screen.\nClock"},
    {commandExit, "Ends the program.\nExit"},
    {commandFacts, "Changes what is known of the story.\nProperties"},
    {57344, "Workbench"},
    {0xE001, "Ready"},
};

constexpr ACCEL mainKeyRows[] = {
    {FVIRTKEY | FCONTROL, 'N', commandNew},  {FVIRTKEY | FCONTROL, 'O', commandOpen},
    {FVIRTKEY | FCONTROL, 'S', commandSave}, {FVIRTKEY, VK_F1 + 4, commandPlay},
    {FVIRTKEY, VK_F1 + 5, commandStop},      {FVIRTKEY, VK_F1 + 6, commandSlower},
    {FVIRTKEY, VK_F1 + 7, commandFaster},    {FVIRTKEY, VK_F1 + 8, commandMark}};
constexpr ACCEL fixedKeyRows[] = {{FVIRTKEY | FCONTROL, 'Q', commandExit}};
constexpr auto mainTable = AcceleratorResource(mainKeyRows);
constexpr auto fixedTable = AcceleratorResource(fixedKeyRows);

constexpr DialogItem clockItems[] = {
    {"STATIC", "", 1001, 4, 3, 120, 12, WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE, 0}};
constexpr DWORD label = WS_CHILD | WS_VISIBLE, field = label | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
                pushed = label | WS_TABSTOP;
constexpr DialogItem storyItems[] = {{"STATIC", "&Title:", -1, 7, 9, 60, 10, label},
                                     {"EDIT", "", storyTitle, 70, 7, 110, 14, field},
                                     {"STATIC", "&Begins at:", -1, 7, 28, 60, 10, label},
                                     {"EDIT", "", storyBegin, 70, 26, 60, 14, field},
                                     {"STATIC", "T&ext colour:", -1, 7, 47, 60, 10, label},
                                     {"EDIT", "", storyText, 70, 45, 60, 14, field},
                                     {"STATIC", "&Ground colour:", -1, 7, 66, 60, 10, label},
                                     {"EDIT", "", storyGround, 70, 64, 60, 14, field},
                                     {"STATIC", "&Channel:", -1, 7, 85, 60, 10, label},
                                     {"EDIT", "", storyChannel, 70, 83, 60, 14, field},
                                     {"BUTTON", "OK", 1, 76, 106, 50, 14, pushed | BS_DEFPUSHBUTTON},
                                     {"BUTTON", "Cancel", 2, 130, 106, 50, 14, pushed}};
constexpr DialogTemplate dialogs[] = {
    {clockDialog, "Clock", 130, 18, WS_POPUP | WS_THICKFRAME, clockItems},
    {storyDialog, "Story", 187, 127, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, storyItems}};

} // namespace

void RegisterResources()
{
    static const std::vector<std::byte> small = ButtonStrip(16, 15), large = ButtonStrip(32, 30);
    static const BinaryResource resources[] = {
        {"#9", "#301", mainTable}, {"#9", "#302", fixedTable}, {"#2", "#201", small}, {"#2", "#202", large}};
    AfxSetResourceStrings(texts);
    AfxSetResources(resources);
    AfxSetDialogTemplates(dialogs);
}
