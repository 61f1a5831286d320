// The folder that news come into: which of its files have appeared or changed.
//
// A file counts once it has been the same, by size and time, at two looks in a row, so that one that is still
// being written is left alone. Only plain files whose names end in ".txt" count. User-interface thread.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace prompter {

class NewsFolder {
public:
    explicit NewsFolder(std::string folder) : m_folder(std::move(folder)) {}

    struct News {
        std::string name; // of the file, without its folder
        std::string bytes;
    };
    // What is new since the last look. A file that cannot be read, or is above largestNews, is passed over.
    std::vector<News> Look();

    static constexpr std::uint64_t largestNews = 1u << 20; // bytes

private:
    struct Seen {
        std::uint64_t size = 0;
        std::int64_t time = 0; // of the last change, in the file system's own units
        bool isTaken = false;

        bool IsSame(const Seen& other) const { return size == other.size && time == other.time; }
    };
    std::map<std::string, Seen> List() const;

    std::string m_folder;
    std::map<std::string, Seen> m_seen;
};

} // namespace prompter
