#include "Terminal.h"

#include "corekit/platform/Console.h"
#include "corekit/platform/HarmlessText.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace {

constexpr auto redrawAfter = std::chrono::milliseconds(50);
constexpr std::size_t widestBar = 40;

std::string Bar(std::uintmax_t done, std::uintmax_t total)
{
    const auto columns = static_cast<std::size_t>(TerminalColumns(StandardStream::Error));
    const std::size_t room = std::min(widestBar, columns / 2);
    const double part = std::min(static_cast<double>(done) / static_cast<double>(total), 1.0);
    const auto filled = static_cast<std::size_t>(static_cast<double>(room) * part);
    return "[" + std::string(filled, '#') + std::string(room - filled, '.') + "]";
}

std::string Harmless(const std::string& text)
{
    return corekit::HarmlessText(text, corekit::LineEnds::escaped);
}

std::string Amount(double bytes)
{
    constexpr const char* units[] = {"bytes", "kB", "MB", "GB"};
    std::size_t unit = 0;
    for (; bytes >= 1000 && unit + 1 < std::size(units); ++unit) bytes /= 1000;
    char text[32];
    std::snprintf(text, sizeof text, unit == 0 || bytes >= 100 ? "%.0f %s" : "%.1f %s", bytes, units[unit]);
    return text;
}

} // namespace

ProgressBar::ProgressBar(const std::string& what, std::size_t total)
    : m_what(Harmless(what)), m_total(total),
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
    std::fprintf(stderr, "\r%s %s %zu/%zu", m_what.c_str(), Bar(m_done, m_total).c_str(), m_done, m_total);
}

TransferBar::TransferBar(const std::string& what, std::uintmax_t total)
    : m_what(Harmless(what)), m_total(total), m_visible(IsVisible())
{
}

TransferBar::~TransferBar()
{
    if (m_visible) std::fputs("\r\x1B[K", stderr);
}

bool TransferBar::IsVisible() { return TerminalColumns(StandardStream::Error) > 0; }

void TransferBar::Advance(std::uintmax_t bytes)
{
    m_done += bytes;
    if (m_visible && Clock::now() - m_shown >= redrawAfter) Show();
}

std::string TransferBar::Rate() const
{
    const double seconds = std::chrono::duration<double>(Clock::now() - m_start).count();
    return Amount(static_cast<double>(m_done) / std::max(seconds, 1e-6)) + "/s";
}

std::string TransferBar::Summary() const
{
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.2f",
                  std::chrono::duration<double>(Clock::now() - m_start).count());
    return Amount(static_cast<double>(m_done)) + " in " + seconds + " s, " + Rate();
}

void TransferBar::Show()
{
    m_shown = Clock::now();
    const std::string bar = m_total > 0 ? Bar(m_done, m_total) + " " : "";
    std::fprintf(stderr, "\r\x1B[K%s %s%s %s", m_what.c_str(), bar.c_str(),
                 Amount(static_cast<double>(m_done)).c_str(), Rate().c_str());
}
