// What the commands show of themselves: progress bars on a terminal.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

// A bar on standard error while work goes on; nothing at all where standard error is no terminal.
class ProgressBar {
public:
    ProgressBar(const std::string& what, std::size_t total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void Advance();

private:
    void Show();

    std::string m_what;
    std::size_t m_total;
    std::size_t m_done = 0;
    bool m_visible;
    std::chrono::steady_clock::time_point m_shown;
};

// The same for bytes that move, with their rate; the total may be unknown (0).
class TransferBar {
public:
    TransferBar(const std::string& what, std::uintmax_t total);
    ~TransferBar();
    TransferBar(const TransferBar&) = delete;
    TransferBar& operator=(const TransferBar&) = delete;

    // Whether bars are shown at all.
    static bool IsVisible();
    void Advance(std::uintmax_t bytes);
    // "1.2 MB in 0.35 s, 3.4 MB/s"
    std::string Summary() const;

private:
    using Clock = std::chrono::steady_clock;
    std::string Rate() const;
    void Show();

    std::string m_what;
    std::uintmax_t m_total, m_done = 0;
    bool m_visible;
    Clock::time_point m_start = Clock::now(), m_shown = m_start;
};
