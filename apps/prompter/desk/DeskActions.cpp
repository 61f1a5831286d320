// The menu of the desk, its keys, and what they do.
#include "desk/CommandKeys.h"
#include "desk/Desk.h"
#include "desk/DeskCommands.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/FileDialog.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace prompter {
namespace {

constexpr const char* scriptFilter = "Scripts (*.txt)|*.txt|All files (*)|*||";

} // namespace

// Each item with the key that it has now.
void Desk::MakeMenu()
{
    const HMENU bar = CreateMenu(), former = ::GetMenu(m_hWnd);
    HMENU menu = nullptr;
    std::string_view open;
    for (const DeskMenuItem& item : deskMenu) {
        if (open != item.menu) {
            open = item.menu;
            menu = CreatePopupMenu();
            AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), item.menu);
        }
        const CString key = KeyNameOf(deskKeys, item.command);
        const CString text = CString(item.text ? item.text : "") + (key.IsEmpty() ? "" : "\t") + key;
        AppendMenuA(menu, item.text ? MF_STRING : MF_SEPARATOR, item.command, text);
    }
    ::SetMenu(m_hWnd, bar);
    if (former) DestroyMenu(former);
}

BOOL Desk::PreTranslateMessage(MSG* message)
{
    // A display has its keys to itself, whatever the keyboard of the editor makes of them.
    const bool isPrompting = m_outputs.Has(message->hwnd);
    if (isPrompting) return CWnd::PreTranslateMessage(message);
    const HACCEL keys = KeyTable(deskKeys);
    if (keys && TranslateAcceleratorA(m_hWnd, keys, message)) return TRUE;
    const bool isWriting = message->hwnd != m_preview.m_hWnd;
    if (isWriting && CUnicodeManager::GetObjectA()->TranslateMessageHook(message)) return TRUE;
    return CWnd::PreTranslateMessage(message);
}

BOOL Desk::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT command = LOWORD(wParam);
    if (lParam != 0 || command < saveScript || command > lastDeskCommand)
        return CWnd::OnCommand(wParam, lParam);
    Perform(command);
    return TRUE;
}

void Desk::Perform(UINT command)
{
    TakeEdits();
    switch (command) {
    case newScript:
        return OpenScript({});
    case openScript:
        return AskForScript();
    case saveScript:
        return Save();
    case saveScriptAs:
        return SaveAs();
    case quitDesk:
        PostMessage(WM_CLOSE);
        return;
    case startPrompt:
    case startPromptAtCursor:
        return StartPrompt(command == startPromptAtCursor);
    case leavePrompt:
        return m_outputs.Forget();
    case mirrorSides:
        return ChangeForms([](FrameForm& f) { f.mirrorLeftRight = !f.mirrorLeftRight; });
    case mirrorTop:
        return ChangeForms([](FrameForm& f) { f.mirrorTopBottom = !f.mirrorTopBottom; });
    case turnDisplays:
        return ChangeForms(
            [](FrameForm& f) { f.turn = static_cast<Turn>((static_cast<int>(f.turn) + 1) % 4); });
    case showSettings:
        return ShowSettings();
    case changeKeys:
        return ChangeKeys();
    case showKeyboards:
        return ShowKeyboards();
    case nextKeyboard:
        CUnicodeManager::GetObjectA()->ActivateNextKeyboard();
        return;
    default:
        return PerformOnStory(command);
    }
}

void Desk::PerformOnStory(UINT command)
{
    Script& script = m_file.TheScript();
    const int index = std::max(script.IndexOf(m_edited.Key()), 0);
    switch (command) {
    case addStory:
        return ShowStory(script.Insert(index + 1, u""));
    case removeStory:
        script.Remove(index);
        return ShowStory(std::min(index, script.Count() - 1));
    case moveStoryUp:
        if (index > 0) script.Move(index, index - 1);
        return ShowStory(std::max(index - 1, 0));
    case moveStoryDown:
        if (index + 1 < script.Count()) script.Move(index, index + 1);
        return ShowStory(std::min(index + 1, script.Count() - 1));
    case skipStory:
        script.SetSkipped(index, !script.At(index).isSkipped);
        return ShowStory(index);
    case keepStory:
        script.KeepOnly(m_edited.Key());
        return ShowStory(std::max(script.IndexOf(m_edited.Key()), 0));
    default:
        return PerformOnStyle(command);
    }
}

void Desk::PerformOnStyle(UINT command)
{
    PromptStyle style = m_settings.session.style;
    switch (command) {
    case largerText:
    case smallerText:
        style.size = std::clamp(style.size + (command == largerText ? 4 : -4), 16, 300);
        return SetStyle(style);
    case wider:
    case narrower:
        style.margin =
            std::clamp(style.margin + (command == narrower ? 20 : -20), 0, m_settings.session.frame.cx / 3);
        return SetStyle(style);
    default:
        return;
    }
}

void Desk::ShowStory(int index)
{
    ScriptChanged();
    ChooseStory(index);
}

void Desk::AskForScript()
{
    CFileDialog dialog(TRUE, "txt", nullptr, OFN_FILEMUSTEXIST, scriptFilter, this);
    if (dialog.DoModal() == IDOK) OpenScript(static_cast<const char*>(dialog.GetPathName()));
}

void Desk::SaveAs()
{
    CFileDialog dialog(FALSE, "txt", m_file.Path().c_str(), OFN_OVERWRITEPROMPT, scriptFilter, this);
    if (dialog.DoModal() != IDOK) return;
    try {
        m_file.SaveAs(static_cast<const char*>(dialog.GetPathName()));
    } catch (const std::runtime_error& e) {
        Complain(e.what());
    }
    ShowTitle();
}

void Desk::SetStyle(const PromptStyle& style)
{
    m_settings.session.style = style;
    m_session.SetSettings(m_settings.session, PromptWnd::Now());
    KeepSettings();
}

} // namespace prompter
