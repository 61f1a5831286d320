#include "corekit/platform/posix/services/UnitText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corekit::detail {
namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
    const std::size_t from = std::min(text.find_first_not_of(blanks), text.size());
    text.remove_prefix(from);
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

// Whether the line's end is taken away by a backslash that nothing takes away.
bool isContinued(std::string_view line)
{
    const std::size_t last = line.find_last_not_of('\\');
    const std::size_t count = line.size() - (last == line.npos ? 0 : last + 1);
    return count % 2 == 1;
}

bool isComment(std::string_view line) { return line.starts_with('#') || line.starts_with(';'); }

// The next line with those that continue it; comments among them are passed over.
std::pair<std::string, std::string> takeLine(std::string_view& rest)
{
    std::string whole, joined;
    for (bool isFirst = true;; isFirst = false) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        whole.append(isFirst ? "" : "\n").append(line);
        const bool passes = !isFirst && isComment(trimmed(line));
        const bool goesOn = passes || (isContinued(line) && !(isFirst && isComment(trimmed(line))));
        if (!passes) joined.append(goesOn ? line.substr(0, line.size() - 1) : line);
        if (goesOn && !passes) joined += ' ';
        if (goesOn && rest.empty()) whole += '\n'; // or what is added below would be part of it
        if (!goesOn || rest.empty()) return {whole, joined};
    }
}

} // namespace

UnitText::UnitText(std::string_view text)
{
    std::string section;
    while (!text.empty()) {
        auto [whole, joined] = takeLine(text);
        const std::string_view line = trimmed(joined);
        const std::size_t equals = line.find('=');
        if (line.starts_with('[') && line.ends_with(']')) {
            section = line.substr(1, line.size() - 2);
            m_lines.push_back({section, {}, {}, std::move(whole)});
        } else if (isComment(line) || equals == line.npos) {
            m_lines.push_back({section, {}, {}, std::move(whole)});
        } else {
            m_lines.push_back({section, std::string(trimmed(line.substr(0, equals))),
                               std::string(trimmed(line.substr(equals + 1))), std::move(whole)});
        }
    }
}

std::vector<std::string> UnitText::values(std::string_view section, std::string_view key) const
{
    std::vector<std::string> found;
    for (const Line& line : m_lines) {
        if (line.section != section || line.key != key || line.key.empty()) continue;
        if (line.value.empty())
            found.clear();
        else
            found.push_back(line.value);
    }
    return found;
}

std::string UnitText::value(std::string_view section, std::string_view key) const
{
    const std::vector<std::string> all = values(section, key);
    return all.empty() ? std::string() : all.back();
}

void UnitText::set(std::string_view section, std::string_view key, std::string_view value)
{
    const auto isMeant = [&](const Line& line) { return line.section == section && line.key == key; };
    auto place = std::ranges::find_if(m_lines, isMeant) - m_lines.begin();
    const bool isThere = place != std::ssize(m_lines);
    std::erase_if(m_lines, isMeant);
    if (value.empty()) return;
    if (!isThere) {
        const auto last = std::find_if(m_lines.rbegin(), m_lines.rend(), [&](const Line& line) {
            return line.section == section && !trimmed(line.text).empty();
        });
        if (last == m_lines.rend()) {
            if (!m_lines.empty()) m_lines.push_back({m_lines.back().section, {}, {}, {}});
            m_lines.push_back({std::string(section), {}, {}, "[" + std::string(section) + "]"});
            place = std::ssize(m_lines);
        } else {
            place = last.base() - m_lines.begin();
        }
    }
    std::string text = std::string(key) + "=" + std::string(value);
    if (isContinued(text)) text += ' ';
    m_lines.insert(m_lines.begin() + place,
                   {std::string(section), std::string(key), std::string(value), text});
}

void UnitText::removeSection(std::string_view section)
{
    std::erase_if(m_lines, [&](const Line& line) { return line.section == section; });
}

std::string UnitText::text() const
{
    std::string all;
    for (const Line& line : m_lines) all.append(line.text).append("\n");
    return all;
}

} // namespace corekit::detail
