// The settings as the operator changes them: the read rate and the clock, the look, the displays, files and
// remote control.
//
// The sheet works on a copy; who shows it takes the result when it was confirmed.
#pragma once

#include "view/SettingsFile.h"

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/commands/ui/AXPropertySheet.h"

namespace prompter {

class ReadingPage : public CAXPropertyPage {
    DECLARE_DYNAMIC(ReadingPage)
public:
    explicit ReadingPage(Settings& settings);
    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnKind();
    DECLARE_MESSAGE_MAP()

private:
    void ListPorts();

    Settings& m_settings;
    int m_kind = 0, m_lines = 0, m_seconds = 0, m_characters = 0, m_countdown = 0, m_status = 0, m_clock = 0,
        m_port = 0;           // rows and numbers of the controls
    std::vector<int> m_ports; // of the rows, 0 first
};

class LookPage : public CAXPropertyPage {
    DECLARE_DYNAMIC(LookPage)
public:
    explicit LookPage(Settings& settings);
    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override {}

protected:
    void DoDataExchange(CDataExchange* exchange) override;

private:
    void FillChoices();

    Settings& m_settings;
    int m_size = 0, m_gap = 0, m_margin = 0, m_mark = 0, m_brackets = 0;
    CString m_faces, m_text, m_back, m_markColour;
};

class DisplaysPage : public CAXPropertyPage {
    DECLARE_DYNAMIC(DisplaysPage)
public:
    DisplaysPage(Settings& settings, std::vector<Display> there);
    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override;

protected:
    void OnPick();
    void OnChange();
    DECLARE_MESSAGE_MAP()

private:
    OutputSettings* Picked();

    Settings& m_settings;
    std::vector<Display> m_there;
    std::vector<OutputSettings> m_outputs; // a row each
};

class FilesPage : public CAXPropertyPage {
    DECLARE_DYNAMIC(FilesPage)
public:
    explicit FilesPage(Settings& settings);
    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnBrowse();
    void OnRemote();
    DECLARE_MESSAGE_MAP()

private:
    void FillCodePages();

    Settings& m_settings;
    CString m_news, m_address, m_word;
    int m_hasRemote = 0, m_remotePort = 0, m_codePage = 0;
    std::vector<int> m_codePages; // of the rows
};

class SettingsSheet : public CAXPropertySheet {
    DECLARE_DYNAMIC(SettingsSheet)
public:
    SettingsSheet(const Settings& settings, std::vector<Display> there, CWnd* parent);
    const Settings& Result() const { return m_settings; }

private:
    Settings m_settings;
    ReadingPage m_reading;
    LookPage m_look;
    DisplaysPage m_displays;
    FilesPage m_files;
};

} // namespace prompter
