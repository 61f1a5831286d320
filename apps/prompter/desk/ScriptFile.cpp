#include "desk/ScriptFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/ReplacedFile.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace prompter {
namespace {

namespace fs = std::filesystem;
constexpr std::uintmax_t largestScript = 512u << 20; // bytes

[[noreturn]] void Fail(const std::string& what, const std::string& path, const std::string& why)
{
    throw std::runtime_error("cannot " + what + " " + path + ": " + why);
}

std::string BytesOf(const std::string& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        Fail("open", path, error ? error.message() : "it is no plain file");
    if (fs::file_size(path, error) > largestScript) Fail("open", path, "it is too large for a script");
    std::ifstream file(path, std::ios::binary);
    if (!file) Fail("open", path, std::generic_category().message(errno));
    return {std::istreambuf_iterator<char>(file), {}};
}

// A file in the place of one that nobody may write to would be no less of a loss.
bool IsReadOnly(const std::string& path)
{
    constexpr fs::perms writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return false;
    return (fs::status(path, error).permissions() & writing) == fs::perms::none ||
           !std::fstream(path, std::ios::in | std::ios::out | std::ios::binary);
}

std::string LastErrorText()
{
    CException* const reason = GetLastErrorException();
    char text[512] = "";
    reason->GetErrorMessage(text, sizeof text);
    reason->Delete();
    std::string line(text);
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
    return line;
}

} // namespace

std::string UsualRecoveryFolder()
{
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state && *state == '/') return std::string(state) + "/corekit/prompter";
    const char* home = std::getenv("HOME");
    return std::string(home ? home : ".") + "/.local/state/corekit/prompter";
}

ScriptFile::ScriptFile(std::string recoveryFolder, unsigned codePage)
    : m_folder(std::move(recoveryFolder)), m_codePage(codePage)
{
}

void ScriptFile::Open(const std::string& path)
{
    ScriptText read;
    std::error_code error;
    const Stamp stamp = StampOf(path);
    if (!path.empty() && fs::exists(path, error)) read = DecodeScript(BytesOf(path), m_codePage);
    m_script.SetText(read.text);
    m_form = read.form;
    m_isExact = read.isExact;
    m_isRecovered = false;
    m_path = path;
    m_stamp = stamp;
    EndKeeping();
    m_recovery.emplace(m_folder, path);
    m_keptVersion = m_script.Version();
}

ScriptFile::Stamp ScriptFile::StampOf(const std::string& path)
{
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    if (error) return {};
    return {size, fs::last_write_time(path, error).time_since_epoch().count()};
}

// One that was removed has nothing that a save could take away.
bool ScriptFile::IsChangedOnDisk() const
{
    const Stamp now = StampOf(m_path);
    return now != Stamp{} && now != m_stamp;
}

void ScriptFile::TakeLeft(std::u16string_view text)
{
    m_script.SetText(text);
    m_isRecovered = true;
    m_keptVersion = m_script.Version();
}

void ScriptFile::Save()
{
    if (m_path.empty()) throw std::runtime_error("the script has no name yet");
    if (!m_isExact)
        throw std::runtime_error(m_path +
                                 " has bytes that are no text in its encoding; save it under another name");
    Write(m_path);
}

void ScriptFile::SaveAs(const std::string& path)
{
    // Another file need not have the old one's encoding where that cannot hold the script.
    if (path != m_path && (!m_isExact || !EncodeScript(m_script.Text(), m_form))) m_form = {};
    Write(path);
    if (path != m_path) {
        DropUnsaved();
        m_path = path;
        m_recovery.emplace(m_folder, path);
    }
    m_isExact = true;
}

void ScriptFile::Write(const std::string& path)
{
    const auto bytes = EncodeScript(m_script.Text(), m_form);
    if (!bytes)
        Fail("save", path, "its encoding lacks a character of the script; save it under another name");
    if (IsReadOnly(path)) Fail("save", path, "it is read-only; save the script under another name");
    corekit::ReplacedFile file(path);
    if (!file || !file.Write(*bytes) || !file.Commit()) Fail("save", path, LastErrorText());
    m_stamp = StampOf(path);
    m_script.MarkSaved();
    m_isRecovered = false;
    m_keptVersion = m_script.Version();
    DropUnsaved();
}

bool ScriptFile::KeepUnsaved()
{
    constexpr std::uint64_t none = ~std::uint64_t{0};
    const bool isRunning =
        m_keeping.valid() && m_keeping.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
    if (isRunning) return m_isKept;
    if (m_keeping.valid()) m_isKept = m_keeping.get();
    if (!m_isKept) m_keptVersion = none; // again
    if (m_script.Version() == m_keptVersion) return m_isKept;
    m_keptVersion = m_script.Version();
    m_keeping =
        std::async(std::launch::async, [this, text = m_script.Text()] { return m_recovery->Keep(text); });
    return m_isKept;
}

void ScriptFile::EndKeeping()
{
    if (m_keeping.valid()) m_keeping.get();
    m_isKept = true;
}

void ScriptFile::DropUnsaved()
{
    EndKeeping();
    m_recovery->Drop();
}

} // namespace prompter
