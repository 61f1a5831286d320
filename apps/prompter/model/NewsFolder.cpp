#include "model/NewsFolder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace prompter {
namespace {

namespace fs = std::filesystem;

std::optional<std::string> BytesOf(const fs::path& path, std::uint64_t size)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size))) return std::nullopt;
    return bytes;
}

} // namespace

std::map<std::string, NewsFolder::Seen> NewsFolder::List() const
{
    std::map<std::string, Seen> files;
    std::error_code error;
    for (fs::directory_iterator at(m_folder, error), end; !error && at != end; at.increment(error)) {
        const bool isNews =
            at->path().extension() == ".txt" && fs::is_regular_file(at->symlink_status(error));
        if (!isNews || error) continue;
        const Seen seen{at->file_size(error), at->last_write_time(error).time_since_epoch().count()};
        if (!error && seen.size <= largestNews) files.emplace(at->path().filename().string(), seen);
    }
    return files;
}

std::vector<NewsFolder::News> NewsFolder::Look()
{
    std::vector<News> news;
    std::map<std::string, Seen> files = List();
    for (auto& [name, now] : files) {
        const auto before = m_seen.find(name);
        if (before == m_seen.end() || !before->second.IsSame(now)) continue;
        now.isTaken = before->second.isTaken;
        if (now.isTaken) continue;
        if (auto bytes = BytesOf(fs::path(m_folder) / name, now.size))
            news.push_back({name, std::move(*bytes)});
        now.isTaken = true;
    }
    m_seen = std::move(files);
    return news;
}

} // namespace prompter
