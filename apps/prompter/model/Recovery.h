// Unsaved text, kept beside the settings until it is saved: what a crash or a loss of power leaves behind is
// offered when the same script is opened again. Prompters that run at the same time with one script keep a
// text each.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace prompter {

class Recovery {
public:
    // `folder` is made when it is needed; the script's path need not exist, and an empty one is the script
    // without a name.
    // A text that a prompter left behind, which runs no more, is found first.
    Recovery(std::string folder, std::string_view scriptPath);
    ~Recovery();
    Recovery(const Recovery&) = delete;
    Recovery& operator=(const Recovery&) = delete;

    // What was left behind; nothing if there is no such file, or one that is damaged or of another script.
    std::optional<std::u16string> Left() const;
    // False with a last error; what was kept before stays then.
    bool Keep(std::u16string_view text) const;
    void Drop() const;

private:
    void Hold(const std::string& path);

    std::string m_folder, m_script, m_path;
    HANDLE m_lock = nullptr; // of the text's place, as long as the object lives
};

} // namespace prompter
