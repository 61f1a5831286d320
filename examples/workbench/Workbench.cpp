#include "Workbench.h"

#include "Commands.h"

#include "corekit/commands/ui/CommandList.h"
#include "corekit/commands/ui/IntelliToolBar.h"
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Messages.h"
#include "corekit/windows/controls/ui/MenuHelpersEx.h"
#include "corekit/windows/ui/DockBarEx.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(Workbench, CFrameWnd)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_CONTEXTMENU()
ON_WM_SYSCOLORCHANGE()
ON_COMMAND(commandNew, &Workbench::OnNew)
ON_COMMAND(commandOpen, &Workbench::OnOpenStory)
ON_COMMAND(commandSave, &Workbench::OnSave)
ON_COMMAND(commandPlay, &Workbench::OnRun)
ON_COMMAND(commandStop, &Workbench::OnHalt)
ON_UPDATE_COMMAND_UI(commandPlay, &Workbench::OnUpdateRun)
ON_UPDATE_COMMAND_UI(commandStop, &Workbench::OnUpdateHalt)
ON_COMMAND_RANGE(commandFaster, commandSlower, &Workbench::OnSpeed)
ON_COMMAND(commandMark, &Workbench::OnMark)
ON_COMMAND(paneState, &Workbench::OnState)
ON_COMMAND(paneProgress, &Workbench::OnMark)
ON_COMMAND(commandFacts, &Workbench::OnFacts)
ON_UPDATE_COMMAND_UI(commandFacts, &Workbench::OnUpdateFacts)
ON_COMMAND(commandColour, &Workbench::OnColour)
ON_COMMAND_RANGE(commandPictures, commandNames, &Workbench::OnView)
ON_UPDATE_COMMAND_UI_RANGE(commandPictures, commandNames, &Workbench::OnUpdateView)
ON_COMMAND(commandCustomise, &Workbench::OnCustomise)
ON_COMMAND(commandClock, &Workbench::OnClock)
ON_UPDATE_COMMAND_UI(commandClock, &Workbench::OnUpdateClock)
ON_COMMAND(commandExit, &Workbench::OnExit)
ON_REGISTERED_MESSAGE(CCustomToolbar::s_uMacroMsg, &Workbench::OnMacro)
END_MESSAGE_MAP()

namespace {

struct Row {
    UINT command;
    const char* category;
    const char* name;
};
// In the order of their pictures.
constexpr Row commands[] = {
    {commandNew, "Story!", "New"},          {commandOpen, "Story!", "Open"},
    {commandSave, "Story!", "Save"},        {commandPlay, "Prompter!", "Play"},
    {commandStop, "Prompter!", "Stop"},     {commandFaster, "Prompter!", "Faster"},
    {commandSlower, "Prompter!", "Slower"}, {commandMark, "Prompter!", "Mark"},
    {commandPictures, "View!", "Pictures"}, {commandTable, "View!", "Table"},
    {commandNames, "View!", "Names"},
};

void RegisterCommands()
{
    CCommandList& list = GetCommandList();
    UINT picture = 0;
    for (const Row& row : commands)
        list.RegisterCommand(row.command, smallPictures, largePictures, picture++, row.category, row.name);
    list.RegisterAcceleratorTable("Main window", mainKeys, fixedKeys);
    const auto bar = [&list](UINT id, const char* name, std::initializer_list<UINT> buttons) {
        CUIntArray array;
        for (const UINT button : buttons) array.Add(button);
        list.RegisterDefaultToolbar(id, name, array);
    };
    bar(firstToolbar, "Story", {commandNew, commandOpen, commandSave, 0, commandMark});
    bar(secondToolbar, "Prompter",
        {commandPlay, commandStop, 0, commandSlower, commandFaster, 0, commandPictures, commandTable,
         commandNames});
}

void AddMenu(CMenu& bar, const char* title, std::initializer_list<std::pair<UINT, const char*>> items)
{
    CMenu menu;
    menu.CreatePopupMenu();
    for (const auto& [command, name] : items)
        command ? menu.AppendMenu(MF_STRING, command, name) : menu.AppendMenu(MF_SEPARATOR);
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(menu.Detach()), title);
}

} // namespace

// ---- Opening

bool Workbench::Open()
{
    RegisterCommands();
    Load();
    const CRect place(60, 60, 1060, 700);
    if (!Create(nullptr, "Workbench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, &place)) return false;
    if (!MakeMenu() || !MakeBars() || !MakeStacks()) return false;
    MakeToolbars();
    MakeMacroBar();
    RecalcLayout();
    CPropertyStore layout = m_settings.GetPropertyStore("Layout");
    CDockBarEx::LoadControlBarStates(layout, this);
    m_keyTable = GetCommandList().GetAcceleratorTable(mainKeys);
    ShowState();
    SetMessageText(0xE001u);
    ShowWindow(SW_SHOW);
    if (m_showsClock) OpenClock();
    return true;
}

bool Workbench::MakeMenu()
{
    CMenu bar;
    bar.CreateMenu();
    AddMenu(bar, "&Story",
            {{commandNew, "&New\tCtrl+N"},
             {commandOpen, "&Open\tCtrl+O"},
             {commandSave, "&Save\tCtrl+S"},
             {0, ""},
             {commandFacts, "P&roperties..."},
             {0, ""},
             {commandExit, "E&xit\tCtrl+Q"}});
    AddMenu(bar, "&Prompter",
            {{commandPlay, "&Play\tF5"},
             {commandStop, "&Stop\tF6"},
             {0, ""},
             {commandSlower, "S&lower\tF7"},
             {commandFaster, "&Faster\tF8"},
             {commandMark, "&Mark\tF9"}});
    AddMenu(bar, "&View",
            {{commandPictures, "&Pictures"},
             {commandTable, "&Table"},
             {commandNames, "&Names"},
             {0, ""},
             {commandClock, "&Clock"},
             {commandCustomise, "C&ustomise..."}});
    if (!SetMenu(&bar)) return false;
    bar.Detach(); // the window's
    return true;
}

bool Workbench::MakeBars()
{
    constexpr UINT panes[] = {0, paneState, paneProgress};
    constexpr DWORD resizable = WS_CHILD | WS_VISIBLE | CBRS_SIZE_DYNAMIC;
    // The first bar lies along the whole edge.
    if (!m_status.Create(this) || !m_status.SetIndicators(panes, 3)) return false;
    EnableExtendedDocking(this, CBRS_ALIGN_ANY);
    if (!m_colours.Create(this, coloursBar, "Colours", CRect(0, 0, 120, 300), resizable | CBRS_LEFT) ||
        !m_pictures.Create(this, picturesBar, "Pictures", CRect(0, 0, 240, 300), resizable | CBRS_RIGHT))
        return false;
    for (CDockableWindow* const pane :
         {static_cast<CDockableWindow*>(&m_colours), static_cast<CDockableWindow*>(&m_pictures)})
        pane->EnableDocking(CBRS_ALIGN_ANY);
    DockControlBar(&m_colours, AFX_IDW_DOCKBAR_LEFT);
    DockControlBar(&m_pictures, AFX_IDW_DOCKBAR_RIGHT);
    if (auto* const dock = dynamic_cast<CDockBarEx*>(GetExtendedDockBar(this, AFX_IDW_DOCKBAR_LEFT)))
        dock->SetEdgeBorder(CBRS_RIGHT, 1, 0);
    return true;
}

void Workbench::MakeToolbars()
{
    CCommandList& list = GetCommandList();
    CPropertyStore kept = m_settings.GetPropertyStore("Toolbars");
    int count = 0, large = 0;
    const bool isKept = kept.GetValue("Count", count) != 0;
    if (kept.GetValue("Large", large)) CIntelliToolBar::EnableLargeButtons(large);
    if (!isKept) count = list.GetDefaultToolbarCount();
    for (int i = 0; i < std::min(count, 50); ++i) {
        UINT id = 0;
        CString name;
        CUIntArray buttons;
        if (isKept) {
            CPropertyStore one = kept.GetPropertyStore(("Toolbar " + std::to_string(i)).c_str());
            CByteArray bytes;
            if (!one.GetValue("ID", id) || !one.GetValue("Name", name) || !one.GetValue("Buttons", bytes))
                continue;
            buttons.SetSize(bytes.GetSize() / static_cast<int>(sizeof(UINT)));
            std::copy_n(bytes.GetData(), buttons.GetSize() * static_cast<int>(sizeof(UINT)),
                        reinterpret_cast<BYTE*>(buttons.GetData()));
        } else {
            list.GetDefaultToolbarByIndex(i, id, name, buttons);
        }
        auto* const bar = new CIntelliToolBar;
        if (GetControlBar(id) || !bar->CreateFromData(this, id, buttons, name)) {
            bar->m_hWnd ? static_cast<void>(bar->DestroyWindow()) : delete bar;
            continue;
        }
        CRect beside;
        CIntelliToolBar* const before = list.GetToolbarByIndex(list.GetToolbarCount() - 1);
        if (before) {
            RecalcLayout();
            before->GetWindowRect(&beside);
            beside.OffsetRect(beside.Width() + 1, 0);
        }
        list.AddToolbar(bar);
        DockControlBar(bar, AFX_IDW_DOCKBAR_TOP, before ? &beside : nullptr);
    }
}

void Workbench::MakeMacroBar()
{
    m_macroBar.reset();
    auto bar = std::make_unique<CCustomToolbar>();
    if (!m_showsMacros || !bar->Create(this, macroBar, &m_macros)) return;
    m_macroBar = std::move(bar);
    DockControlBar(m_macroBar.get(), AFX_IDW_DOCKBAR_BOTTOM);
}

bool Workbench::MakeStacks()
{
    if (!m_splitter.Create(this, CSplitterEx::aboveEachOther, CRect(), AFX_IDW_PANE_FIRST)) return false;
    for (PaneStack& stack : m_stacks) {
        if (!stack.Create(&m_splitter, WS_CHILD | WS_VISIBLE, 0, CRect(), 1)) return false;
        stack.SetPartner(&stack == m_stacks ? m_stacks[1] : m_stacks[0]);
        stack.EnableKeyboardTabChange(1);
        stack.EnableTabDragging(1);
        stack.EnableDragFocusSelect(1);
    }
    for (int i = 0; i < storyCount; ++i) {
        StoryText& text = m_texts[i];
        if (!text.Create(m_stacks, 1, CRect())) return false;
        text.SetInitialHighlightOff();
        text.SetString(stories[i].text);
        text.SetColours(text.facts.text, text.facts.ground);
    }
    if (!m_frame.Create(*m_stacks, 1)) return false;
    m_splitter.SetPanes(&m_stacks[0], &m_stacks[1]);
    m_splitter.SetLeastSizes(60, 60);
    FillStacks();
    for (PaneStack& stack : m_stacks)
        stack.chosen = [this](CWnd* pane) {
            m_inFront = pane;
            if (const StoryText* const story = Shown())
                m_colours.m_picker.ShowColours(story->facts.text, story->facts.ground);
        };
    ActivateKeptPanes();
    return true;
}

// Panes are numbered: a story, or behind them the frame.
void Workbench::Attach(PaneStack& stack, int pane)
{
    const bool isStory = pane >= 0 && pane < storyCount;
    CWnd& window = isStory ? static_cast<CWnd&>(m_texts[pane]) : m_frame;
    const StringW title = isStory ? m_texts[pane].facts.title : StringW(u"Frame");
    stack.AttachPane(-1, &window, 0, title, 0);
}

StoryText* Workbench::Shown() const { return dynamic_cast<StoryText*>(m_inFront); }

void Workbench::KeepClock()
{
    m_clockState.cbSize = sizeof m_clockState;
    m_clock.GetState(&m_clockState);
}

bool Workbench::OpenClock()
{
    if (m_clockState.cbSize) m_clock.SetState(m_clockState);
    return m_clock.Open(*this);
}

void Workbench::OnClose()
{
    Store();
    CFrameWnd::OnClose();
}

void Workbench::OnDestroy()
{
    CFrameWnd::OnDestroy();
    PostQuitMessage(0);
}

void Workbench::OnSysColorChange()
{
    UpdateSysColourMetricCache();
    CFrameWnd::OnSysColorChange();
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// ---- Commands

BOOL Workbench::PreTranslateMessage(MSG* message)
{
    m_hAccelTable = m_keyTable ? *m_keyTable : nullptr; // customising makes another one
    return CFrameWnd::PreTranslateMessage(message);
}

void Workbench::ShowState()
{
    m_status.SetPaneText(1, m_runs ? "Running" : "Stopped");
    m_status.SetPaneColours(1, RGB(255, 255, 255), m_runs ? RGB(78, 154, 6) : RGB(164, 0, 0));
    CString percent;
    percent.Format("%d %%", m_speed * 10);
    m_status.SetPaneText(2, percent);
    m_status.SetPaneProgress(2, m_speed * 10);
}

void Workbench::OnRun()
{
    m_runs = true;
    ShowState();
}

void Workbench::OnState() { m_runs ? OnHalt() : OnRun(); }

void Workbench::OnHalt()
{
    m_runs = false;
    ShowState();
}

void Workbench::OnSpeed(UINT command)
{
    m_speed = std::clamp(m_speed + (command == commandFaster ? 1 : -1), 0, 10);
    ShowState();
}

void Workbench::OnUpdateRun(CCmdUI* item)
{
    item->Enable(!m_runs);
    item->SetCheck(m_runs);
}

void Workbench::OnUpdateHalt(CCmdUI* item) { item->Enable(m_runs); }

void Workbench::OnMark() { SetMessageText("Marked."); }

void Workbench::OnNew()
{
    if (StoryText* const story = Shown()) story->SetString(u"");
}

void Workbench::OnOpenStory()
{
    if (StoryText* const story = Shown()) story->SetString(stories[story - m_texts].text);
}

void Workbench::OnFacts()
{
    StoryText* const story = Shown();
    if (!story) return;
    StoryDialog dialog(story->facts, this);
    if (dialog.DoModal() != IDOK) return;
    story->facts = dialog.m_facts;
    for (PaneStack& stack : m_stacks)
        if (const int pane = stack.GetPaneIndex(story); pane >= 0)
            stack.SetPaneTitle(pane, story->facts.title);
    story->SetColours(story->facts.text, story->facts.ground);
    m_colours.m_picker.ShowColours(story->facts.text, story->facts.ground);
    SetMessageText("The story begins at " + story->facts.begin.MakeString() + ".");
}

void Workbench::OnColour()
{
    StoryText* const story = Shown();
    if (!story) return;
    const ColourPicker& picker = m_colours.m_picker;
    (picker.IsForGround() ? story->facts.ground : story->facts.text) = picker.GetColour();
    story->SetColours(story->facts.text, story->facts.ground);
}
void Workbench::OnSave() { Store(); }

void Workbench::OnView(UINT command)
{
    constexpr eMVLBMode modes[] = {eMVLBMode_Grid, eMVLBMode_Details, eMVLBMode_List};
    m_pictures.m_pictures.SetViewMode(modes[command - commandPictures]);
}

void Workbench::OnUpdateView(CCmdUI* item)
{
    item->SetCheck(static_cast<UINT>(m_pictures.m_pictures.GetViewMode()) == item->m_nID - commandPictures);
}

void Workbench::OnCustomise()
{
    int changed = 0;
    GetCommandList().Configure(this, mainKeys, &m_keys, &m_macros, &m_macroNames, nullptr, &changed,
                               &m_showsMacros);
    if (changed) MakeMacroBar();
    RecalcLayout();
}

void Workbench::OnClock()
{
    if (m_clock.m_hWnd) {
        KeepClock();
        m_clock.DestroyWindow();
    } else {
        OpenClock();
    }
}

void Workbench::OnUpdateClock(CCmdUI* item) { item->SetCheck(m_clock.m_hWnd != nullptr); }

LRESULT Workbench::OnMacro(WPARAM button, LPARAM)
{
    const CString macro = m_macroBar ? m_macroBar->GetMacro(static_cast<int>(button)) : CString();
    PaneStack& stack = m_stacks[m_stacks[0].GetPaneCount() == 0];
    if (macro == "Next story")
        stack.SetActivePane((stack.GetPaneIndex(stack.GetActivePane()) + 1) % stack.GetPaneCount());
    else
        SetMessageText(macro);
    return 0;
}

void Workbench::OnContextMenu(CWnd*, CPoint point)
{
    CRightButtonMenu menu;
    for (const Row& row : commands) {
        if (row.command == commandPlay || row.command == commandPictures) menu.AddSeparator();
        menu.Add(row.command, row.name);
    }
    menu.AddSeparator();
    menu.Add(commandCustomise, "Customise...");
    menu.Show(*this, point);
}
