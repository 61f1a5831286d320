// What a started program does before it can work: each writes a line to its log and reads a setting, says
// what memory it holds, and ends.
#pragma once

#include <cstdio>

// In KiB, from the system; 0 if it does not say.
inline long residentKibibytes()
{
    long size = 0;
    std::FILE* const status = std::fopen("/proc/self/status", "r");
    char line[256];
    while (status && std::fgets(line, sizeof line, status))
        if (std::sscanf(line, "VmRSS: %ld", &size) == 1) break;
    if (status) std::fclose(status);
    return size;
}
