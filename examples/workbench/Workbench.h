// The window of the workbench: menus, tool bars that the user can change, docked panes, a stack of texts, a
// status bar, a clock at the edge of the screen.
//
// Layout, keys, tool bars and clock are kept in one file, a property store.
#pragma once

#include "ClockBar.h"
#include "Panes.h"

#include "corekit/commands/ui/CustomToolbar.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"
#include "corekit/windows/controls/ui/AXStatusBar.h"
#include "corekit/windows/ui/TabbedOverlayWnd.h"

#include <memory>
#include <string>
#include <vector>

class Workbench : public CFrameWnd {
public:
    // Null, or empty, for a window that remembers nothing.
    explicit Workbench(std::string settingsFile) : m_settingsFile(std::move(settingsFile)) {}

    bool Open();
    CTabbedOverlayWnd& Stack() { return m_stack; }

protected:
    BOOL PreTranslateMessage(MSG* message) override;
    void OnClose();
    void OnDestroy();
    void OnContextMenu(CWnd* window, CPoint point);
    void OnRun();
    void OnHalt();
    void OnSpeed(UINT command);
    void OnUpdateRun(CCmdUI* item);
    void OnUpdateHalt(CCmdUI* item);
    void OnMark();
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
    bool MakeStack();
    void ShowState();
    void Load();
    void Store();
    bool OpenClock();

    std::string m_settingsFile;
    CPropertyStore m_settings, m_keys, m_macros, m_macroNames;
    HACCEL* m_keyTable = nullptr;
    CAXStatusBar m_status;
    ColoursPane m_colours;
    PicturesPane m_pictures;
    CTabbedOverlayWnd m_stack;
    std::vector<std::unique_ptr<CMultilineUnicodeEditCtl>> m_texts;
    std::unique_ptr<CCustomToolbar> m_macroBar;
    ClockBar m_clock;
    APPBARSTATE m_clockState{};
    int m_speed = 5, m_showsMacros = 1, m_showsClock = 0;
    bool m_runs = false;
};
