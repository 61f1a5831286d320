// Unsaved text, kept beside the settings until it is saved: what a crash or a loss of power leaves behind is
// offered when the same script is opened again.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace prompter {

class Recovery {
public:
    // `folder` is made when it is needed; the script's path need not exist, and an empty one is the script
    // without a name.
    Recovery(std::string folder, std::string_view scriptPath);

    // What was left behind; nothing if there is no such file, or one that is damaged or of another script.
    std::optional<std::u16string> Left() const;
    // False with a last error; what was kept before stays then.
    bool Keep(std::u16string_view text) const;
    void Drop() const;

private:
    std::string m_folder, m_script, m_path;
};

} // namespace prompter
