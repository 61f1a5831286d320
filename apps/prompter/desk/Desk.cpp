#include "desk/Desk.h"

#include "desk/CommandKeys.h"
#include "desk/DeskCommands.h"
#include "desk/SettingsDialogs.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/WinApp.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "corekit/unicode/ui/UsualFonts.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace prompter {

IMPLEMENT_DYNAMIC(Desk, CWnd)

BEGIN_MESSAGE_MAP(Desk, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_TIMER()
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_ERASEBKGND()
ON_WM_SETFOCUS()
ON_WM_SYSCOLORCHANGE()
END_MESSAGE_MAP()

namespace {

constexpr UINT listId = 100, editId = 101, previewId = 102;
constexpr UINT_PTR keepTimer = 2, newsTimer = 3, displayTimer = 4;
constexpr UINT keepMilliseconds = 3000, newsMilliseconds = 1000, displayMilliseconds = 100;
// Of the em: the cell is high in faces with Arabic letters.
constexpr int editorSize = -24, listSize = -17, listWidth = 300, gap = 4;

} // namespace

Desk::Desk(const DeskOptions& options)
    : m_options(options), m_settings(LoadSettings(options.settingsPath)), m_file(options.recoveryFolder, 0),
      m_session(m_file.TheScript()), m_list(m_file.TheScript(), m_settings.session.rate),
      m_preview(m_session, {}), m_outputs(m_session, [this] { LeavePrompt(); }), m_keptSettings(m_settings)
{
}

Desk::~Desk()
{
    m_clock.reset();
    m_remote.reset(); // its requests come here
    m_controller.reset();
    m_outputs.Forget();
}

void Desk::Open()
{
    CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
    manager->EnableKeyboardSwitching(TRUE);
    // Scripts are read in their own order, in faces that this machine has, whatever the registry says.
    manager->OverrideSettings({TRUE, FALSE, manager->ExtraLineHeight(), manager->IsUnderlineSelectEnabled()});
    manager->OverrideControlsFont(UsualFonts(listSize));
    AfxSetDialogTemplates(dialogs::all);
    RegisterCommands();
    TakeKeys(m_settings.keys);
    m_file.SetCodePage(CodePage());
    m_file.Open(m_options.script);
    const std::int64_t now = PromptWnd::Now();
    m_session.SetSettings(m_settings.session, now);
    m_session.SetSpeed(m_settings.speed, now);
    const RECT place = PlaceInSight(m_settings.desk, m_options.listDisplays());
    if (!CreateEx(0, AfxRegisterWndClass(0), "Prompter", WS_OVERLAPPEDWINDOW, place, nullptr, 0))
        throw std::runtime_error("no window can be opened");
    MakeMenu();
    m_list.Refresh();
    ChooseStory(0);
    ShowTitle();
    ShowWindow(SW_SHOW);
    OfferLeft();
    WatchNews();
    OpenRemote();
    OpenController();
    m_clock.emplace([this](std::int64_t due, std::int64_t next) { ShowFrame(due, next); });
    SetTimer(keepTimer, keepMilliseconds);
    SetTimer(displayTimer, displayMilliseconds);
}

int Desk::OnCreate(CREATESTRUCTA*)
{
    m_list.onChoose = [this](int index) { ChooseStory(index); };
    m_list.onMove = [this](int from, int to) {
        TakeEdits();
        m_file.TheScript().Move(from, to);
        ScriptChanged();
        ChooseStory(to);
    };
    m_preview.onLeave = [this] { LeavePrompt(); };
    const CRect nowhere(0, 0, 10, 10);
    const bool made = m_list.CreatePane(this, listId) && m_edit.Create(this, editId, nowhere) &&
                      m_preview.CreatePane(this, previewId, nowhere);
    if (!made) return -1;
    // Seen nowhere, but read out.
    m_list.SetWindowText("Stories");
    m_edit.SetWindowText("Story");
    m_edit.SetFontData(UsualFonts(editorSize).GetCombinedString(), 0, 0);
    m_edit.SetInitialHighlightOff();
    OnSysColorChange();
    return 0;
}

void Desk::OnSize(UINT, int width, int height) { LayOutPanes(width, height); }

// The list on the left, the editor above, the copy of the frame below it in the frame's proportions.
void Desk::LayOutPanes(int width, int height)
{
    if (!m_preview.m_hWnd) return;
    const int left = std::min(listWidth, width / 3), right = std::max(width - left - gap, 1);
    const SIZE frame = m_settings.session.frame;
    const int preview =
        std::clamp(static_cast<int>(static_cast<LONGLONG>(right) * frame.cy / frame.cx), 1, height * 3 / 5);
    const int previewWidth = static_cast<int>(static_cast<LONGLONG>(preview) * frame.cx / frame.cy);
    m_list.MoveWindow(0, 0, left, height);
    m_edit.MoveWindow(left + gap, 0, right, std::max(height - preview - gap, 1));
    m_preview.MoveWindow(left + gap + std::max((right - previewWidth) / 2, 0), height - preview,
                         std::min(previewWidth, right), preview);
}

BOOL Desk::OnEraseBkgnd(CDC* dc)
{
    CRect client;
    GetClientRect(&client);
    FillRect(*dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
}

void Desk::OnSetFocus(CWnd*) { m_edit.SetFocus(); }

void Desk::OnSysColorChange()
{
    UpdateSysColourMetricCache();
    CWnd::OnSysColorChange();
    m_edit.SetColours(GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW));
    m_list.Invalidate();
}

void Desk::ShowTitle()
{
    const std::string name = m_file.Path().empty() ? "New script" : m_file.Path();
    SetWindowText((std::string(m_file.IsModified() ? "* " : "") + name + " - Prompter" +
                   (m_cannotKeep ? " (unsaved text cannot be kept for a crash)" : ""))
                      .c_str());
}

void Desk::OfferLeft()
{
    const auto left = m_file.Left();
    if (!left) return;
    if (StockMessageBox(this,
                        "This script was not saved when the prompter ended last. Take the unsaved text?",
                        MB_YESNO | MB_ICONQUESTION) != IDYES)
        return;
    m_file.TakeLeft(*left);
    ScriptChanged();
    ChooseStory(0);
}

void Desk::TakeScript(const std::string& path)
{
    m_file.SetCodePage(CodePage());
    m_file.Open(path);
    m_session.GoToStart(PromptWnd::Now());
    m_session.ForgetMarkers();
    m_edited.End();
    ScriptChanged();
    ChooseStory(0);
    OfferLeft();
}

void Desk::OpenScript(const std::string& path)
{
    if (!MayClose()) return;
    try {
        TakeScript(path);
    } catch (const std::runtime_error& e) {
        Complain(e.what());
    }
}

unsigned Desk::CodePage() const
{
    return m_options.codePage ? m_options.codePage : static_cast<unsigned>(m_settings.codePage);
}

void Desk::OpenRemote()
{
    m_remote.reset();
    m_remotePort = 0;
    const bool isWanted = m_options.remote || m_settings.hasRemote;
    if (!isWanted) return;
    m_remote.emplace([this](std::string_view line) {
        std::string answer = m_session.Do(ParseRemoteLine(line), PromptWnd::Now());
        Tick();
        return answer;
    });
    if (m_options.remote) {
        m_remotePort = m_remote->Listen(*m_options.remote);
        return;
    }
    try {
        m_remotePort = m_remote->Listen(m_settings.remote);
    } catch (CException* e) { // another prompter may have the port
        m_remote.reset();
        char why[512] = "";
        e->GetErrorMessage(why, sizeof why);
        e->Delete();
        Complain((std::string("There is no remote control: ") + why).c_str());
    } catch (const std::exception& e) {
        m_remote.reset();
        Complain((std::string("There is no remote control: ") + e.what()).c_str());
    }
}

void Desk::WatchNews()
{
    m_news.reset();
    const std::string& folder = m_options.newsFolder.empty() ? m_settings.newsFolder : m_options.newsFolder;
    if (folder.empty()) return;
    m_news.emplace(folder);
    SetTimer(newsTimer, newsMilliseconds);
}

void Desk::Complain(const char* why) { StockMessageBox(this, why, MB_OK | MB_ICONEXCLAMATION); }

void Desk::LookForNews()
{
    if (!m_news) return;
    bool changed = false;
    TakeEdits();
    for (const NewsFolder::News& one : m_news->Look()) {
        const std::u16string text = DecodeScript(one.bytes, CodePage()).text;
        const bool isText = text.find(u'\0') == text.npos;
        if (isText)
            changed |= m_file.TheScript().TakeNews(one.name, text, m_edited.Key()) != Script::News::unchanged;
    }
    if (!changed) return;
    ScriptChanged();
    ChooseStory(std::max(m_file.TheScript().IndexOf(m_edited.Key()), 0));
}

void Desk::TakeEdits()
{
    int from = 0, removed = 0, added = 0;
    if (!m_edit.TakeChange(from, removed, added)) return;
    Script& script = m_file.TheScript();
    const int index = script.IndexOf(m_edited.Key());
    if (index < 0) return;
    const Story& story = script.At(index);
    const auto edit =
        m_edited.Take(static_cast<std::size_t>(from), static_cast<std::size_t>(removed),
                      static_cast<std::size_t>(added), ViewOf(m_edit.GetModel().Text()), story.text);
    if (!edit) return;
    const std::u16string gone = story.text.substr(edit->change.at, edit->change.removed);
    script.ChangeLines(index, edit->change, edit->lines);
    m_list.StoryChanged(story, gone);
    ScriptChanged();
}

void Desk::ChooseStory(int index)
{
    TakeEdits();
    Script& script = m_file.TheScript();
    index = std::clamp(index, 0, script.Count() - 1);
    const Story& story = script.At(index);
    const StringW stored = StoredOf(story.text);
    if (story.key != m_edited.Key() || ViewOf(stored) != ViewOf(m_edit.GetModel().Text())) {
        m_edit.SetString(stored);
        m_edit.CommitToUndoBuffer(); // undo never brings back another story
        int from = 0, removed = 0, added = 0;
        m_edit.TakeChange(from, removed, added); // that was no edit
        m_edited.Begin(story, m_edit.GetString());
    }
    m_list.Choose(index);
}

void Desk::ScriptChanged()
{
    m_session.ScriptChanged(PromptWnd::Now());
    m_list.Refresh();
    ShowTitle();
}

void Desk::Tick()
{
    TakeEdits();
    if (!m_session.Tick(PromptWnd::Now())) return;
    m_outputs.ShowFrame(); // first: the desk may wait
    m_preview.ShowFrame();
}

// What the next frame needs is done as soon as this one is shown, so that nothing is left to do, and to wait
// for, when it is due.
void Desk::ShowFrame(std::int64_t due, std::int64_t next)
{
    TakeEdits();
    const bool isNew = m_session.Tick(due, PromptWnd::Now());
    if (isNew) m_outputs.ShowFrame();
    m_session.Prepare(next, PromptWnd::Now());
    if (!isNew) return;
    m_preview.ShowFrame();
    m_outputs.AwaitShown();
}

void Desk::OnTimer(UINT_PTR id)
{
    if (id == keepTimer)
        KeepUnsaved();
    else if (id == newsTimer)
        LookForNews();
    else if (id == displayTimer)
        FollowDisplays();
    else
        Default();
}

void Desk::KeepUnsaved()
{
    const bool isKept = m_file.KeepUnsaved();
    if (isKept == !m_cannotKeep) return;
    m_cannotKeep = !isKept;
    ShowTitle();
}

void Desk::StartPrompt(bool fromCursor)
{
    TakeEdits();
    const std::int64_t now = PromptWnd::Now();
    if (fromCursor)
        m_session.GoToOffset(m_edited.Key(), static_cast<std::size_t>(std::max(m_edit.GetCursorIndex(), 0)),
                             now);
    if (!m_isPrompting) ChooseStandIn();
    m_isPrompting = true;
    if (!m_punctual) m_punctual.emplace();
    FollowDisplays();
    m_outputs.TakeFocus();
}

void Desk::LeavePrompt()
{
    m_session.Stop(PromptWnd::Now());
    // The window whose key this is must outlive the key.
    m_isPrompting = false;
    m_punctual.reset();
    m_outputs.Close();
    SetActiveWindow();
    m_edit.SetFocus();
    PostMessage(WM_COMMAND, leavePrompt);
}

void Desk::Save()
{
    TakeEdits();
    if (m_file.Path().empty()) return SaveAs();
    if (m_file.IsChangedOnDisk() &&
        StockMessageBox(this, "Another program has changed the file since it was opened. Write over it?",
                        MB_YESNO | MB_ICONEXCLAMATION) != IDYES)
        return;
    try {
        m_file.Save();
    } catch (const std::runtime_error& e) {
        Complain(e.what());
    }
    ShowTitle();
}

bool Desk::MayClose()
{
    TakeEdits();
    if (!m_file.IsModified()) return true;
    switch (StockMessageBox(this, "Save the script?", MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        Save();
        return !m_file.IsModified();
    case IDNO:
        m_file.DropUnsaved();
        return true;
    default:
        return false;
    }
}

void Desk::OnClose()
{
    if (MayClose()) DestroyWindow();
}

void Desk::OnDestroy()
{
    m_clock.reset();
    for (const UINT_PTR timer : {keepTimer, newsTimer, displayTimer}) KillTimer(timer);
    m_settings.speed = m_session.Speed();
    GetWindowRect(&m_settings.desk);
    KeepSettings();
    m_outputs.Forget();
    Default();
    PostQuitMessage(0);
}

} // namespace prompter
