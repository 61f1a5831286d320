#include "model/Recovery.h"

#include "model/StoreFile.h"

#include "corekit/platform/Files.h"

#include <cstdio>
#include <filesystem>

namespace prompter {
namespace {

constexpr const char* scriptName = "Script";
constexpr const char* textName = "Text";
constexpr const char* lockName = ".lock";
constexpr int mostPlaces = 8; // prompters with one script

std::string Absolute(std::string_view path)
{
    std::error_code error;
    const auto absolute = std::filesystem::absolute(std::filesystem::path(path), error);
    return path.empty() || error ? std::string(path) : absolute.lexically_normal().string();
}

// FNV-1a: the same name for the same script in every run.
std::uint64_t HashOf(std::string_view text)
{
    std::uint64_t hash = 14695981039346656037u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    return hash;
}

} // namespace

Recovery::Recovery(std::string folder, std::string_view scriptPath)
    : m_folder(std::move(folder)), m_script(Absolute(scriptPath))
{
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    const auto place = [this](int number) {
        char name[48];
        std::snprintf(name, sizeof name, "/%016llx-%d.unsaved",
                      static_cast<unsigned long long>(HashOf(m_script)), number);
        return m_folder + name;
    };
    for (const bool mustBeLeft : {true, false})
        for (int i = 0; i < mostPlaces && !m_lock; ++i)
            if (m_path = place(i); !mustBeLeft || std::filesystem::exists(m_path, error)) Hold(m_path);
    if (!m_lock) m_path = place(0); // where nothing can be locked
}

Recovery::~Recovery()
{
    if (!m_lock) return;
    std::remove((m_path + lockName).c_str());
    CloseHandle(m_lock);
}

// A lock ends with the process that has it, however that ends.
void Recovery::Hold(const std::string& path)
{
    const HANDLE lock = CreateFileA((path + lockName).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_ALWAYS, 0, nullptr);
    if (lock != INVALID_HANDLE_VALUE) m_lock = lock;
}

std::optional<std::u16string> Recovery::Left() const
{
    std::optional<CPropertyStore> store = ReadStoreFile(m_path);
    CString script;
    StringW text;
    if (!store || !store->GetValue(scriptName, script) || m_script != static_cast<const char*>(script) ||
        !store->GetValue(textName, text))
        return std::nullopt;
    return std::u16string(static_cast<const WCHAR*>(text), static_cast<std::size_t>(text.GetLength()));
}

bool Recovery::Keep(std::u16string_view text) const
{
    CPropertyStore store;
    store.SetValue(scriptName, m_script.c_str());
    store.SetBinaryValue(textName, text.data(), static_cast<DWORD>(text.size() * sizeof(char16_t)));
    return WriteStoreFile(m_path, store);
}

void Recovery::Drop() const { std::remove(m_path.c_str()); }

} // namespace prompter
