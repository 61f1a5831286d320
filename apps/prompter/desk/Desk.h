// The operator's window: stories, the editor of the chosen one, and what the displays show.
//
// It owns the script, the session and the windows of the displays, and drives the frames by a clock. Lives on
// the user-interface thread from its creation to the end of the program.
#pragma once

#include "desk/EditedStory.h"
#include "desk/ScriptEdit.h"
#include "desk/ScriptFile.h"
#include "desk/StoryList.h"
#include "model/NewsFolder.h"
#include "remote/ControllerLine.h"
#include "remote/RemoteServer.h"
#include "view/Displays.h"
#include "view/FrameClock.h"
#include "view/OutputWindows.h"
#include "view/SettingsFile.h"

#include "corekit/platform/PopupMenus.h"
#include "corekit/platform/PunctualThread.h"

#include <memory>
#include <optional>

namespace prompter {

struct DeskOptions {
    std::string script;
    unsigned codePage = 0; // 0: that of the settings
    std::string settingsPath = UsualSettingsPath();
    std::string recoveryFolder = UsualRecoveryFolder();
    std::string newsFolder; // empty: that of the settings, as below
    std::optional<RemotePlace> remote;
    int controllerPort = 0; // 0: that of the settings
    std::function<std::vector<Display>()> listDisplays = &ListDisplays;
};

class Desk : public CWnd {
    DECLARE_DYNAMIC(Desk)
public:
    explicit Desk(const DeskOptions& options);
    ~Desk() override;

    // Opens the script and the window. Throws std::runtime_error with a reason in one line.
    void Open();
    // The port of remote control, 0 without.
    int RemotePort() const { return m_remotePort; }
    Session& TheSession() { return m_session; }
    ScriptFile& File() { return m_file; }
    HWND Editor() const { return m_edit.m_hWnd; }
    HWND List() const { return m_list.m_hWnd; }
    // The windows on displays; empty while nothing is prompted.
    const std::vector<OutputWindows::Window>& Outputs() const { return m_outputs.Windows(); }
    bool HasController() const { return m_controller && m_controller->IsOpen(); }

    // Brings script, frame and windows up to date.
    void Tick();

    // ---- What menus and keys do
    void StartPrompt(bool fromCursor);
    void LeavePrompt();
    void Save();
    void OpenScript(const std::string& path); // empty: a new one; the one that is open is offered to be saved
    void TakeSettings(const Settings& settings);

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    int OnCreate(CREATESTRUCTA* create);
    void OnSize(UINT how, int width, int height);
    void OnTimer(UINT_PTR id);
    void OnClose();
    void OnDestroy();
    BOOL OnEraseBkgnd(CDC* dc);
    void OnSetFocus(CWnd* before);
    void OnSysColorChange();
    DECLARE_MESSAGE_MAP()

private:
    void MakeMenu();
    void LayOutPanes(int width, int height);
    void ShowTitle();
    void OfferLeft();
    void TakeScript(const std::string& path);
    void OpenRemote();
    void WatchNews();
    void LookForNews();
    void KeepUnsaved();
    void KeepSettings();
    unsigned CodePage() const;
    void ShowFrame(std::int64_t due, std::int64_t next); // sixty times a second
    void TakeEdits();                                    // what was typed goes into the script
    void ChooseStory(int index);                         // and shows it in the editor
    void ScriptChanged();                                // the list and the prompt follow
    bool MayClose();
    void Perform(UINT command);
    void PerformOnStory(UINT command);
    void PerformOnStyle(UINT command);
    void ShowStory(int index); // after a change of the script
    void SaveAs();
    void AskForScript();
    void ChangeKeys();
    void TakeController(const ControllerEvent& event);
    void TakeButton(int button);
    void Complain(const char* why);
    void SetStyle(const PromptStyle& style);
    void OpenController();
    void ChooseStandIn();
    std::vector<PlannedOutput> Plan();
    void FollowDisplays();
    POINT Middle() const;
    void ChangeForms(const std::function<void(FrameForm&)>& change);
    void ShowSettings();
    void ShowKeyboards();

    DeskOptions m_options;
    Settings m_settings;
    ScriptFile m_file;
    Session m_session;
    StoryList m_list;
    ScriptEdit m_edit;
    PromptWnd m_preview;
    OutputWindows m_outputs;
    bool m_isPrompting = false;
    std::string m_standIn; // the display that shows the prompt while none of the wanted ones is there
    std::optional<NewsFolder> m_news;
    std::optional<RemoteServer> m_remote;
    std::optional<ControllerLine> m_controller;
    std::optional<FrameClock> m_clock;                 // of the frames, while the window is there
    std::optional<corekit::PunctualThread> m_punctual; // while the prompt is shown
    int m_remotePort = 0;
    Settings m_keptSettings;       // as they stand in the file
    bool m_isChangingKeys = false; // a button of the controller is then a key to be given
    bool m_cannotKeep = false;     // unsaved text is not safe
    EditedStory m_edited;
};

} // namespace prompter
