// An edit control in a window of its own, with a font in which every letter is equally wide.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/InputTest.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtlSink.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <string>

// Writes down what it hears of keys.
class NotingSink : public CMultilineUnicodeEditCtlSink {
public:
    void OnEditReturn() override { Note("return"); }
    void OnEditEscape() override { Note("escape"); }
    void OnEditTab(int shift) override { Note(shift ? "tab1" : "tab0"); }
    void OnEditLButtonDown() override {}
    void OnEditLButtonUp() override {}
    void OnEditCursorUp() override { Note("up"); }
    void OnEditCursorDown() override { Note("down"); }
    void OnEditKillFocus() override {}

    std::string received;

private:
    void Note(const char* what) { received += (received.empty() ? "" : " ") + std::string(what); }
};

class EditInAWindow {
public:
    static constexpr int fontSize = 19; // ten pixels a letter, nearly

    explicit EditInAWindow(int width = 600, int height = 200)
    {
        CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
        manager->OverrideControlsFont(Font());
        manager->EnableKeyboardSwitching(TRUE);
        parent.CreateEx(0, AfxRegisterWndClass(0), "edit", WS_OVERLAPPEDWINDOW, 0, 0, 1200, 800, nullptr,
                        nullptr);
        edit.SetInitialHighlightOff();
        edit.Create(&parent, 1, CRect(0, 0, width, height));
        edit.RegisterSink(&sink);
        parent.ShowWindow(SW_SHOW);
        edit.SetFocus();
        corekit::test::RunWaiting();
    }
    ~EditInAWindow() { parent.DestroyWindow(); }

    static CFontDescriptor Font()
    {
        CFontDescriptor font;
        font.SetSize(fontSize);
        for (const char* face : {"DejaVu Sans Mono", "Noto Sans Hebrew", "Amiri"}) font.AddFont(face);
        return font;
    }
    void SetClientSize(int width, int height)
    {
        CRect window, client;
        edit.GetWindowRect(&window);
        edit.GetClientRect(&client);
        edit.MoveWindow(0, 0, width + window.Width() - client.right,
                        height + window.Height() - client.bottom);
        corekit::test::RunWaiting();
    }
    const corekit::detail::EditModel& Model() const { return edit.GetModel(); }

    CWnd parent;
    NotingSink sink;
    CMultilineUnicodeEditCtl edit;
};
