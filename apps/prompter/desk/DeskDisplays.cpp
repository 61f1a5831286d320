// The desk and what is around it: displays that show the prompt, the hand controller, the settings of both.
#include "desk/Desk.h"
#include "desk/KeyboardsDialog.h"
#include "desk/SettingsSheet.h"

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
}

void Desk::OpenController()
{
    m_controller.reset();
    const int port = m_options.controllerPort ? m_options.controllerPort : m_settings.controllerPort;
    if (port == 0) return;
    m_controller.emplace(port, [this](const ControllerEvent& event) {
        m_session.Perform(event.action, event.value, PromptWnd::Now());
        Tick();
    });
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

void Desk::TakeSettings(const Settings& settings)
{
    const bool hasOtherPort = settings.controllerPort != m_settings.controllerPort;
    m_settings.session = settings.session;
    m_settings.outputs = settings.outputs;
    m_settings.controllerPort = settings.controllerPort;
    m_session.SetSettings(m_settings.session, PromptWnd::Now());
    m_list.Refresh(); // whose times follow the read rate
    if (hasOtherPort) OpenController();
    FollowDisplays();
    SaveSettings(m_options.settingsPath, m_settings);
}

} // namespace prompter
