#include "corekit/platform/Debugging.h"

#include <csignal>
#include <fstream>
#include <string>

namespace {

bool isTraced()
{
    std::ifstream facts("/proc/self/status");
    for (std::string line; std::getline(facts, line);)
        if (line.starts_with("TracerPid:")) return line.find_first_of("123456789") != std::string::npos;
    return false;
}

bool isTrapHandled()
{
    struct sigaction now = {};
    return ::sigaction(SIGTRAP, nullptr, &now) == 0 && now.sa_handler != SIG_DFL;
}

} // namespace

void DebugBreak()
{
    if (isTraced() || isTrapHandled()) ::raise(SIGTRAP);
}
