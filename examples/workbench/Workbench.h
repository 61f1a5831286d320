// The window of the workbench: menus, tool bars that the user can change, docked panes, two stacks of panes
// with texts and a frame, a status bar, a clock at the edge of the screen.
//
// Layout, keys, tool bars and clock are kept in one file, a property store.
#pragma once

#include "ClockBar.h"
#include "FramePane.h"
#include "Panes.h"
#include "Stacks.h"
#include "StoryDialog.h"

#include "corekit/commands/ui/CustomToolbar.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"
#include "corekit/windows/controls/ui/AXStatusBar.h"
#include "corekit/windows/controls/ui/SplitterEx.h"

#include <memory>
#include <string>

class StoryText : public CMultilineUnicodeEditCtl {
public:
    StoryFacts facts;
};

class Workbench : public CFrameWnd {
public:
    // Null, or empty, for a window that remembers nothing.
    explicit Workbench(std::string settingsFile) : m_settingsFile(std::move(settingsFile)) {}

    bool Open();
    PaneStack& Stack(int which) { return m_stacks[which]; }

protected:
    BOOL PreTranslateMessage(MSG* message) override;
    void OnClose();
    void OnDestroy();
    void OnSysColorChange();
    void OnContextMenu(CWnd* window, CPoint point);
    void OnRun();
    void OnHalt();
    void OnState();
    void OnSpeed(UINT command);
    void OnUpdateRun(CCmdUI* item);
    void OnUpdateHalt(CCmdUI* item);
    void OnMark();
    void OnFacts();
    void OnUpdateFacts(CCmdUI* item) { item->Enable(Shown() != nullptr); }
    void OnColour();
    void OnNew();
    void OnOpenStory();
    void OnSave();
    void OnView(UINT command);
    void OnUpdateView(CCmdUI* item);
    void OnCustomise();
    void OnClock();
    void OnUpdateClock(CCmdUI* item);
    void OnExit() { SendMessage(WM_CLOSE); }
    LRESULT OnMacro(WPARAM button, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    bool MakeMenu();
    bool MakeBars();
    void MakeToolbars();
    void MakeMacroBar();
    bool MakeStacks();
    void FillStacks();
    void ActivateKeptPanes();
    void Attach(PaneStack& stack, int pane);
    StoryText* Shown() const; // the story in front, null for none
    void ShowState();
    // What is kept.
    void Load();
    void LoadStories();
    void Store();
    void StoreStories();
    bool OpenClock();
    void KeepClock();

    std::string m_settingsFile;
    CPropertyStore m_settings, m_keys, m_macros, m_macroNames;
    HACCEL* m_keyTable = nullptr;
    CAXStatusBar m_status;
    ColoursPane m_colours;
    PicturesPane m_pictures;
    CSplitterEx m_splitter;
    PaneStack m_stacks[2]; // above and below
    StoryText m_texts[storyCount];
    FramePane m_frame; // a pane, too
    CWnd* m_inFront = nullptr;
    std::unique_ptr<CCustomToolbar> m_macroBar;
    ClockBar m_clock;
    APPBARSTATE m_clockState{}; // of no size before there was one
    int m_speed = 5, m_showsMacros = 1, m_showsClock = 0;
    bool m_runs = false;
};
