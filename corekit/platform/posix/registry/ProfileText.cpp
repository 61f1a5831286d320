#include "corekit/platform/posix/registry/ProfileText.h"

#include "corekit/platform/posix/registry/RegistryText.h"

namespace {
using corekit::detail::ProfileLine;
using Kind = ProfileLine::Kind;

constexpr std::string_view mark = "\xEF\xBB\xBF"; // of UTF-8, at the start of a file
constexpr std::string_view blanks = " \t\r\n\v\f";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return text.substr(text.size());
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string_view unquoted(std::string_view value)
{
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}
} // namespace

namespace corekit::detail {

bool sameProfileName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t at = 0; at < a.size(); ++at) {
        if (lower(a[at]) != lower(b[at])) return false;
        if (isLeadByte(a[at]) && ++at < a.size() && a[at] != b[at]) return false;
    }
    return true;
}

ProfileReader::ProfileReader(std::string_view text)
    : m_text(text), m_at(text.starts_with(mark) ? mark.size() : 0)
{
}

bool ProfileReader::Next(ProfileLine& line)
{
    if (m_at >= m_text.size()) return false;
    const auto feed = m_text.find('\n', m_at);
    line = ProfileLine();
    line.begin = m_at;
    line.end = feed == std::string_view::npos ? m_text.size() : feed + 1;
    m_at = line.end;
    const std::string_view text = trimmed(m_text.substr(line.begin, line.end - line.begin));
    line.blank = text.empty();
    if (line.blank || text.front() == ';') return true;
    if (text.front() == '[') {
        auto close = corekit::detail::findSign(text, ']');
        if (close == std::string_view::npos) close = text.find(']'); // in a file of another code page
        if (close == std::string_view::npos) return true;
        line.kind = Kind::section;
        line.name = trimmed(text.substr(1, close - 1));
    } else if (const auto equals = text.find('='); equals != std::string_view::npos && equals > 0) {
        line.kind = Kind::key;
        line.name = trimmed(text.substr(0, equals));
        const std::string_view value = trimmed(text.substr(equals + 1));
        line.valueBegin = static_cast<std::size_t>(value.data() - m_text.data());
        line.valueEnd = line.valueBegin + value.size();
    }
    return true;
}

bool ProfileText::FindLine(std::string_view section, std::string_view key, ProfileLine& line) const
{
    bool inside = false;
    for (ProfileReader reader(m_text); reader.Next(line);) {
        if (line.kind == Kind::section) inside = sameProfileName(line.name, trimmed(section));
        if (inside && line.kind == Kind::key && sameProfileName(line.name, trimmed(key))) return true;
    }
    return false;
}

std::string_view ProfileText::Find(std::string_view section, std::string_view key) const
{
    ProfileLine line;
    if (!FindLine(section, key, line)) return {};
    return unquoted(std::string_view(m_text).substr(line.valueBegin, line.valueEnd - line.valueBegin));
}

std::string ProfileText::Names(const char* section, std::size_t limit) const
{
    std::string names;
    bool inside = !section;
    ProfileLine line;
    for (ProfileReader reader(m_text); reader.Next(line) && names.size() < limit;) {
        if (section && line.kind == Kind::section) inside = sameProfileName(line.name, trimmed(section));
        if (!inside || line.kind != (section ? Kind::key : Kind::section)) continue;
        names.append(line.name.substr(0, limit - names.size()));
        names += '\0';
    }
    return names;
}

std::string_view ProfileText::Start() const
{
    return std::string_view(m_text).substr(0, m_text.starts_with(mark) ? mark.size() : 0);
}

// That of the first line.
std::string_view ProfileText::LineEnd() const
{
    const auto feed = m_text.find('\n');
    return feed != std::string::npos && feed > 0 && m_text[feed - 1] == '\r' ? "\r\n" : "\n";
}

void ProfileText::Set(std::string_view section, std::string_view key, std::string_view value)
{
    ProfileLine line;
    if (FindLine(section, key, line)) {
        const std::size_t length = line.valueEnd - line.valueBegin;
        m_isChanged = std::string_view(m_text).substr(line.valueBegin, length) != value;
        m_text.replace(line.valueBegin, length, value);
        return;
    }
    const std::string end(LineEnd());
    std::string added = std::string(key) + "=" + std::string(value) + end;
    // Behind the last line of the section that says something.
    std::size_t place = std::string::npos;
    bool inside = false;
    for (ProfileReader reader(m_text); reader.Next(line);) {
        if (line.kind == Kind::section) {
            if (place != std::string::npos) break;
            inside = sameProfileName(line.name, trimmed(section));
        }
        if (inside && line.kind != Kind::other) place = line.end;
    }
    if (place == std::string::npos) {
        const bool apart =
            !m_text.empty() && m_text != mark && !m_text.ends_with("\n\n") && !m_text.ends_with("\n\r\n");
        added = (apart ? end : std::string()) + "[" + std::string(section) + "]" + end + added;
        place = m_text.size();
    }
    if (place > 0 && m_text[place - 1] != '\n' && m_text != mark) added = end + added;
    m_text.insert(place, added);
    m_isChanged = true;
}

void ProfileText::DeleteKey(std::string_view section, std::string_view key)
{
    std::string kept(Start());
    bool inside = false;
    ProfileLine line;
    for (ProfileReader reader(m_text); reader.Next(line);) {
        if (line.kind == Kind::section) inside = sameProfileName(line.name, trimmed(section));
        if (inside && line.kind == Kind::key && sameProfileName(line.name, trimmed(key))) continue;
        kept.append(m_text, line.begin, line.end - line.begin);
    }
    m_isChanged = kept.size() != m_text.size();
    m_text = std::move(kept);
}

void ProfileText::DeleteSection(std::string_view section)
{
    std::string kept(Start());
    bool inside = false;
    std::size_t remarks = 0; // where those begin that stand right above the line
    ProfileLine line;
    for (ProfileReader reader(m_text); reader.Next(line);) {
        if (line.kind == Kind::section) {
            const bool next = sameProfileName(line.name, trimmed(section));
            // Remarks above a header belong to what it heads.
            if (inside && !next) kept.append(m_text, remarks, line.begin - remarks);
            inside = next;
        }
        if (line.kind != Kind::other || line.blank) remarks = line.end;
        if (!inside) kept.append(m_text, line.begin, line.end - line.begin);
    }
    m_isChanged = kept.size() != m_text.size();
    m_text = std::move(kept);
}

} // namespace corekit::detail
