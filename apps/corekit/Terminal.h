// What the commands show of themselves: a progress bar on a terminal, tables that line up.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

// A bar on standard error while work goes on; nothing at all where standard error is no terminal.
class ProgressBar {
public:
    ProgressBar(std::string what, std::size_t total);
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

// Prints rows in columns as wide as their widest cell, the first row as the heading. Text is measured in
// characters, combining marks not counted.
void PrintTable(const std::vector<std::vector<std::string>>& rows);
