// A folder of logs, and a registry of its own, as rollovers note their time there.
#pragma once

#include "corekit/foundation/TestClock.h"
#include "corekit/logging/LogTarget.h"
#include "tests/support/RegistryHome.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <vector>

class LogFolder : public RegistryHome {
protected:
    std::string Text(const std::string& name) const { return ReadWhole(folder / name); }
    std::vector<std::string> Lines(const std::string& name) const
    {
        std::istringstream text(Text(name));
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    void MakeFile(const std::string& name) const { WriteWhole(folder / name, "old\n"); }

    TempFolder folder;
};
