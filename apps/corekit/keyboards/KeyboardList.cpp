#include "KeyboardList.h"

#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <stdexcept>
#include <string_view>

namespace {

std::string Folded(std::string text)
{
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string WithoutInternal(const std::string& folded)
{
    constexpr std::string_view suffix = " (internal)";
    return folded.ends_with(suffix) ? folded.substr(0, folded.size() - suffix.size()) : folded;
}

std::string Names(const std::vector<CKBLayout*>& keyboards)
{
    std::string names;
    for (const CKBLayout* keyboard : keyboards)
        names += (names.empty() ? "" : ", ") + std::string(keyboard->GetName().GetString());
    return names;
}

} // namespace

std::vector<CKBLayout*> AllKeyboards()
{
    if (!StartToolkit()) throw std::runtime_error("the window toolkit does not start");
    const CUnicodeManager& manager = *CUnicodeManager::Initialise(FALSE);
    std::vector<CKBLayout*> all;
    for (int i = 0; i < manager.GetKeyboardCount(); ++i) all.push_back(manager.GetKeyboard(i));
    return all;
}

CKBLayout& KeyboardNamed(const std::string& name)
{
    const std::string wanted = Folded(name);
    const auto all = AllKeyboards();
    std::vector<CKBLayout*> fitting;
    for (CKBLayout* keyboard : all) {
        const std::string full = Folded(keyboard->GetName().GetString());
        if (full == wanted || WithoutInternal(full) == wanted) return *keyboard;
        if (!wanted.empty() && full.starts_with(wanted)) fitting.push_back(keyboard);
    }
    if (fitting.size() == 1) return *fitting[0];
    if (fitting.empty())
        throw std::runtime_error("there is no keyboard '" + name + "'; there are " + Names(all));
    throw std::runtime_error("'" + name + "' may be " + Names(fitting));
}
