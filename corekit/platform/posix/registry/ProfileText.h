// The text of a profile: looking things up, and changing lines without disturbing the others.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corekit::detail {

// What one line says. Places count from the text's start.
struct ProfileLine {
    enum class Kind { other, section, key };

    Kind kind = Kind::other;
    bool blank = false;
    std::size_t begin = 0, end = 0; // with the line end
    std::string_view name;          // of a section or key
    std::size_t valueBegin = 0, valueEnd = 0;
};

// Walks the lines of a text, which must stay as it is meanwhile. Takes no memory.
class ProfileReader {
public:
    explicit ProfileReader(std::string_view text);
    bool Next(ProfileLine& line);

private:
    std::string_view m_text;
    std::size_t m_at = 0;
};

class ProfileText {
public:
    explicit ProfileText(std::string text) : m_text(std::move(text)) {}
    const std::string& Text() const { return m_text; }
    bool IsChanged() const { return m_isChanged; }

    // Null data if there is none.
    std::string_view Find(std::string_view section, std::string_view key) const;
    // The names with a zero behind each, as far as they fit in `limit` characters; null section: all
    // sections.
    std::string Names(const char* section, std::size_t limit) const;

    void Set(std::string_view section, std::string_view key, std::string_view value);
    void DeleteKey(std::string_view section, std::string_view key);
    void DeleteSection(std::string_view section);

private:
    bool FindLine(std::string_view section, std::string_view key, ProfileLine& line) const;
    std::string_view Start() const; // the mark of UTF-8, if there is one
    std::string_view LineEnd() const;

    std::string m_text;
    bool m_isChanged = false;
};

bool sameProfileName(std::string_view a, std::string_view b);

} // namespace corekit::detail
