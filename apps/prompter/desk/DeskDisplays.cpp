// The desk and what is around it: displays that show the prompt, the hand controller, keys and settings.
#include "desk/CommandKeys.h"
#include "desk/Desk.h"
#include "desk/KeyboardsDialog.h"
#include "desk/SettingsSheet.h"

#include "corekit/commands/ui/PPage_CustomiseKeyboard.h"
#include "corekit/platform/Input.h"

#include <utility>

namespace prompter {

POINT Desk::Middle() const
{
    CRect place;
    GetWindowRect(&place);
    return place.CenterPoint();
}

void Desk::ChooseStandIn()
{
    m_standIn.clear();
    const std::vector<Display> there = m_options.listDisplays();
    if (!PlanOutputs(m_settings.outputs, there).empty()) return;
    for (const PlannedOutput& one : PlanStandIn(m_settings.outputs, there, Middle())) m_standIn = one.display;
}

// A display that has gone loses its window, and gets one again when it comes back. The one that stands in for
// the wanted ones does so until one of those is there.
std::vector<PlannedOutput> Desk::Plan()
{
    const std::vector<Display> there = m_options.listDisplays();
    std::vector<PlannedOutput> plan = PlanOutputs(m_settings.outputs, there);
    if (!plan.empty() || m_standIn.empty()) return plan;
    OutputSettings own = SettingsOf(m_settings.outputs, m_standIn);
    own.isOn = true;
    return PlanOutputs({&own, 1}, there);
}

void Desk::FollowDisplays()
{
    if (!m_isPrompting) return;
    const std::vector<PlannedOutput> plan = Plan();
    const bool hadFocus = m_outputs.Has(::GetFocus());
    m_outputs.Show(plan);
    if (hadFocus && !m_outputs.Has(::GetFocus())) m_outputs.TakeFocus();
}

// Of the displays that show the prompt, or would; the copy on the desk stays as it is.
void Desk::ChangeForms(const std::function<void(FrameForm&)>& change)
{
    if (!m_isPrompting) ChooseStandIn();
    for (const PlannedOutput& output : Plan()) change(SettingsOf(m_settings.outputs, output.display).form);
    FollowDisplays();
    KeepSettings();
}

void Desk::OpenController()
{
    m_controller.reset();
    const int port = m_options.controllerPort ? m_options.controllerPort : m_settings.controllerPort;
    if (port == 0) return;
    m_controller.emplace(port, [this](const ControllerEvent& event) { TakeController(event); });
}

void Desk::TakeController(const ControllerEvent& event)
{
    using Kind = ControllerEvent::Kind;
    const std::int64_t now = PromptWnd::Now();
    if (event.kind == Kind::button)
        TakeButton(event.value);
    else
        m_session.Perform(event.kind == Kind::speed ? PromptAction::setSpeed : PromptAction::stepLines,
                          event.value, now);
    Tick();
}

// A button does what its key does, and is that key where one is asked for.
void Desk::TakeButton(int button)
{
    if (button > mostButtons) return;
    if (m_isChangingKeys) {
        ::PostMessageA(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(KeyOfButton(button)), 1);
        return;
    }
    if (const PromptCommand* const command = FindPromptCommand(CommandOfButton(button)))
        m_session.Perform(command->action, command->value, PromptWnd::Now());
}

void Desk::ChangeKeys()
{
    CAXPropertySheet sheet("Keys", this);
    PPage_CustomiseKeyboard page(GetCommandList(), "Prompt view");
    sheet.AddPage(&page);
    m_isChangingKeys = true;
    const INT_PTR answer = sheet.DoModal();
    m_isChangingKeys = false;
    if (answer != IDOK) return;
    GetCommandList().RebuildAcceleratorTables();
    m_settings.keys = DifferingKeys();
    MakeMenu();
    KeepSettings();
}

void Desk::ShowSettings()
{
    TakeEdits();
    SettingsSheet sheet(m_settings, m_options.listDisplays(), this);
    if (sheet.DoModal() == IDOK) TakeSettings(sheet.Result());
}

void Desk::ShowKeyboards()
{
    KeyboardsDialog(this).DoModal();
    m_edit.SetFocus();
}

// What the command line asked for holds until the settings ask for something else.
void Desk::TakeSettings(const Settings& settings)
{
    const Settings before = std::exchange(m_settings, settings);
    const std::int64_t now = PromptWnd::Now();
    const auto isSame = [&](auto... of) { return ((m_settings.*of == before.*of) && ...); };
    m_session.SetSettings(m_settings.session, now);
    m_list.Refresh(); // whose times follow the read rate
    if (!isSame(&Settings::controllerPort)) {
        m_options.controllerPort = 0;
        OpenController();
    }
    if (!isSame(&Settings::newsFolder)) {
        m_options.newsFolder.clear();
        WatchNews();
    }
    if (!isSame(&Settings::codePage)) m_options.codePage = 0;
    if (!isSame(&Settings::hasRemote, &Settings::remote)) {
        m_options.remote.reset();
        OpenRemote();
    }
    FollowDisplays();
    KeepSettings();
}

void Desk::KeepSettings()
{
    if (SaveSettings(m_options.settingsPath, m_settings, m_keptSettings)) m_keptSettings = m_settings;
}

} // namespace prompter
