#include "Terminal.h"

#include "corekit/foundation/StringW.h"
#include "corekit/platform/Console.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include "TextFile.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr auto redrawAfter = std::chrono::milliseconds(50);
constexpr std::size_t widestBar = 40;

// Columns that the text takes: non-spacing marks take none.
std::size_t Columns(const std::string& text)
{
    const std::u16string wide = Utf16(text);
    return static_cast<std::size_t>(std::count_if(
        wide.begin(), wide.end(), [](char16_t c) { return CUnicodeCharTypes::GetGeneralType(c) != 0; }));
}

} // namespace

ProgressBar::ProgressBar(std::string what, std::size_t total)
    : m_what(std::move(what)), m_total(total),
      m_visible(total > 1 && TerminalColumns(StandardStream::Error) > 0)
{
    if (m_visible) Show();
}

ProgressBar::~ProgressBar()
{
    if (m_visible) std::fputs("\r\x1B[K", stderr);
}

void ProgressBar::Advance()
{
    ++m_done;
    if (m_visible && std::chrono::steady_clock::now() - m_shown >= redrawAfter) Show();
}

void ProgressBar::Show()
{
    m_shown = std::chrono::steady_clock::now();
    const auto columns = static_cast<std::size_t>(TerminalColumns(StandardStream::Error));
    const std::size_t room = std::min(widestBar, columns / 2), filled = room * m_done / m_total;
    const std::string bar = std::string(filled, '#') + std::string(room - filled, '.');
    std::fprintf(stderr, "\r%s [%s] %zu/%zu", m_what.c_str(), bar.c_str(), m_done, m_total);
}

void PrintTable(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Columns(row[i]));
    }
    for (std::size_t r = 0; r < rows.size(); ++r) {
        std::string line;
        for (std::size_t i = 0; i < rows[r].size(); ++i) {
            line += rows[r][i];
            if (i + 1 < rows[r].size()) line += std::string(widths[i] - Columns(rows[r][i]) + 2, ' ');
        }
        std::puts(line.c_str());
        if (r > 0) continue;
        std::string rule;
        for (const std::size_t width : widths) rule += (rule.empty() ? "" : "  ") + std::string(width, '-');
        std::puts(rule.c_str());
    }
}
