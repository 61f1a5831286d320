// What the workbench keeps from run to run.
#include "Workbench.h"

#include "corekit/commands/MacroProfile.h"
#include "corekit/commands/ui/CommandList.h"
#include "corekit/commands/ui/IntelliToolBar.h"
#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/Exception.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/ReplacedFile.h"
#include "corekit/stores/FileStream.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/windows/ui/DockBarEx.h"

#include <algorithm>

namespace {

std::string Numbered(const char* what, int number) { return what + std::to_string(number); }

// Tool bars as the user made them: for each its id, its name and its commands.
void StoreToolbars(CPropertyStore& store)
{
    const CCommandList& list = GetCommandList();
    store.SetValue("Large", CIntelliToolBar::UsingLargeButtons());
    store.SetValue("Count", list.GetToolbarCount());
    for (int i = 0; i < list.GetToolbarCount(); ++i) {
        const CIntelliToolBar& bar = *list.GetToolbarByIndex(i);
        CUIntArray buttons;
        bar.GetButtonArray(buttons);
        CPropertyStore one;
        one.SetValue("ID", bar.GetDlgCtrlID());
        one.SetValue("Name", static_cast<const char*>(bar.GetName()));
        one.SetBinaryValue("Buttons", buttons.GetData(),
                           static_cast<DWORD>(buttons.GetSize()) * sizeof(UINT));
        store.SetPropertyStore(("Toolbar " + std::to_string(i)).c_str(), one);
    }
}

} // namespace

void Workbench::Load()
{
    if (!m_settingsFile.empty()) {
        try {
            CFileStream file;
            if (file.Open(m_settingsFile.c_str(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0))
                m_settings.ReadStream(file);
        } catch (CException* unreadable) {
            unreadable->Delete(); // as if it were not there
            m_settings.Empty();
        }
    }
    m_keys = m_settings.GetPropertyStore("Keys");
    m_macros = m_settings.GetPropertyStore("Macros");
    if (m_macros.GetPropertyStoreValueCount() == 0)
        corekit::SaveMacroButtons(m_macros, {{"Next", "Next story", {}, "Goes to the next story"},
                                             {"Mark", "Go to the mark", {}, "Goes to the mark"}});
    for (const char* name : {"Go to the mark", "Next story"})
        m_macroNames.SetPropertyStore(name, CPropertyStore());
    m_settings.GetValue("Show Macros", m_showsMacros);
    m_settings.GetValue("Show Clock", m_showsClock);
    m_settings.GetBinaryValue("Clock", &m_clockState, sizeof m_clockState);
    GetCommandList().LoadAcceleratorTables(&m_keys);
    LoadStories();
}

void Workbench::Store()
{
    if (m_settingsFile.empty()) return;
    m_showsClock = m_clock.m_hWnd != nullptr;
    if (m_showsClock) KeepClock();
    CPropertyStore layout, toolbars;
    CDockBarEx::SaveControlBarStates(layout, this);
    StoreToolbars(toolbars);
    StoreStories();
    m_settings.SetPropertyStore("Layout", layout);
    m_settings.SetPropertyStore("Toolbars", toolbars);
    m_settings.SetPropertyStore("Keys", m_keys);
    m_settings.SetPropertyStore("Macros", m_macros);
    m_settings.SetValue("Show Macros", m_showsMacros);
    m_settings.SetValue("Show Clock", m_showsClock);
    m_settings.SetBinaryValue("Clock", &m_clockState, sizeof m_clockState);
    CMemoryStream bytes(0, 4096);
    m_settings.WriteStream(bytes);
    corekit::ReplacedFile file(m_settingsFile);
    if (file && file.Write({static_cast<const char*>(bytes.GetMemoryBufferPointer()), bytes.GetSize()}) &&
        file.Commit())
        return;
    CException* const why = GetLastErrorException();
    why->ReportError(this);
    why->Delete();
}

void Workbench::LoadStories()
{
    for (int i = 0; i < storyCount; ++i) {
        CPropertyStore kept = m_settings.GetPropertyStore(Numbered("Story ", i).c_str());
        StoryFacts& facts = m_texts[i].facts;
        facts.title = stories[i].title;
        kept.GetValue("Title", facts.title);
        CString begin;
        if (kept.GetValue("Begin", begin)) facts.begin.SetFromString(begin);
        UINT text = facts.text, ground = facts.ground;
        kept.GetValue("Text", text);
        kept.GetValue("Ground", ground);
        kept.GetValue("Channel", facts.channel);
        facts.text = text;
        facts.ground = ground;
    }
    RECT place = m_frame.GetPlace();
    m_settings.GetValue("Frame", place);
    m_frame.SetPlace(CRect(place));
}

void Workbench::StoreStories()
{
    for (int i = 0; i < storyCount; ++i) {
        CPropertyStore kept;
        const StoryFacts& facts = m_texts[i].facts;
        kept.SetValue("Title", static_cast<const WCHAR*>(facts.title));
        kept.SetValue("Begin", static_cast<const char*>(facts.begin.MakeString()));
        kept.SetValue("Text", facts.text);
        kept.SetValue("Ground", facts.ground);
        kept.SetValue("Channel", facts.channel);
        m_settings.SetPropertyStore(Numbered("Story ", i).c_str(), kept);
    }
    for (int which = 0; which < 2; ++which) {
        const PaneStack& stack = m_stacks[which];
        CPropertyStore kept;
        kept.SetValue("Count", stack.GetPaneCount());
        kept.SetValue("Active", stack.GetPaneIndex(stack.GetActivePane()));
        for (int i = 0; i < stack.GetPaneCount(); ++i) {
            const auto* const text = dynamic_cast<const StoryText*>(stack.GetPane(i));
            kept.SetValue(Numbered("Pane ", i).c_str(), text ? static_cast<int>(text - m_texts) : storyCount);
        }
        m_settings.SetPropertyStore(Numbered("Stack ", which).c_str(), kept);
    }
    m_settings.SetValue("Front", m_stacks[1].GetPaneIndex(m_inFront) >= 0 ? 1 : 0);
    m_settings.SetValue("Share", m_splitter.GetShare());
    m_settings.SetValue("Frame", static_cast<RECT>(m_frame.GetPlace()));
}

// As they were kept; whatever that leaves out stands where it does at first.
void Workbench::FillStacks()
{
    bool isPlaced[storyCount + 1] = {};
    for (int which = 0; which < 2; ++which) {
        CPropertyStore kept = m_settings.GetPropertyStore(Numbered("Stack ", which).c_str());
        int count = 0, pane = 0;
        kept.GetValue("Count", count);
        for (int i = 0; i < std::min(count, storyCount + 1); ++i) {
            if (!kept.GetValue(Numbered("Pane ", i).c_str(), pane) || pane < 0 || pane > storyCount ||
                std::exchange(isPlaced[pane], true))
                continue;
            Attach(m_stacks[which], pane);
        }
    }
    for (int pane = 0; pane <= storyCount; ++pane)
        if (!isPlaced[pane]) Attach(m_stacks[pane == storyCount], pane);
    int share = 600;
    m_settings.GetValue("Share", share);
    m_splitter.SetShare(share);
}

// The stack that was used last comes to the front after the other.
void Workbench::ActivateKeptPanes()
{
    int front = 0;
    m_settings.GetValue("Front", front);
    for (const int which : {front == 1 ? 0 : 1, front == 1 ? 1 : 0}) {
        int active = 0;
        m_settings.GetPropertyStore(Numbered("Stack ", which).c_str()).GetValue("Active", active);
        m_stacks[which].SetActivePane(m_stacks[which].GetPane(active) ? active : 0);
    }
}
