// The script of the desk as a file: opened, saved whole or not at all, its unsaved text kept for a crash.
#pragma once

#include "model/Recovery.h"
#include "model/Script.h"
#include "model/ScriptText.h"

#include <future>
#include <optional>
#include <string>

namespace prompter {

class ScriptFile {
public:
    // `recoveryFolder` is where unsaved text is kept; `codePage` is that of files without a mark, 0 for
    // UTF-8.
    ScriptFile(std::string recoveryFolder, unsigned codePage);

    void SetCodePage(unsigned codePage) { m_codePage = codePage; } // at the next Open
    // An empty path is a new script. Throws std::runtime_error with the reason in one line.
    void Open(const std::string& path);
    // What a crash has left of this script.
    std::optional<std::u16string> Left() const { return m_recovery->Left(); }
    void TakeLeft(std::u16string_view text);

    // Throws std::runtime_error: what cannot be written, and that an inexact file needs another name.
    void Save();
    void SaveAs(const std::string& path);
    // Whether another program has written to the file since it was opened or saved.
    bool IsChangedOnDisk() const;
    // Keeps the text if it has changed since it was last kept or saved. The disk is waited for on a thread,
    // so that nothing stands still meanwhile; false if it could not be done the last time.
    bool KeepUnsaved();
    void DropUnsaved();

    Script& TheScript() { return m_script; }
    const std::string& Path() const { return m_path; }
    bool IsModified() const { return m_script.IsModified() || m_isRecovered; }

private:
    void Write(const std::string& path);
    void EndKeeping();
    // Of the file as it is on the disk, zeros without one.
    struct Stamp {
        std::uint64_t size = 0;
        std::int64_t time = 0;
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    static Stamp StampOf(const std::string& path);

    Script m_script;
    std::string m_folder, m_path;
    unsigned m_codePage;
    TextForm m_form;
    bool m_isExact = true, m_isRecovered = false;
    std::optional<Recovery> m_recovery; // once a script is open
    Stamp m_stamp;
    bool m_isKept = true;
    std::future<bool> m_keeping; // uses m_recovery
    std::uint64_t m_keptVersion = 0;
};

// $XDG_STATE_HOME/corekit/prompter, else ~/.local/state/...
std::string UsualRecoveryFolder();

} // namespace prompter
