// Arbitrary texts as a service's description, command line and name: the unit file that holds them reads back
// as them, and has no line more. Then the same bytes as a unit file, and as the line in which a service tells
// its state.
#include "corekit/platform/posix/services/StatusText.h"
#include "corekit/platform/posix/services/UnitText.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {
using namespace corekit::detail;

void Must(bool holds)
{
    if (!holds) std::abort();
}

void WriteAndRead(const std::string& description, const std::string& command, const std::string& name)
{
    const std::string text = escapeText(description), unitName = unitNameOf(name);
    std::vector<std::string> words = splitCommandLine(command);
    UnitText unit;
    unit.set("Unit", "Description", text);
    unit.set("Service", "ExecStart", escapeCommand(words));
    unit.set("Unit", "Requires", unitName);
    const std::string file = unit.text();
    Must(std::ranges::count(file, '\n') <= 6);
    const UnitText back(file);
    Must(back.value("Unit", "Description") == text);
    Must(escapeText(unescapeText(text)) == text);
    Must(unescapeCommand(back.value("Service", "ExecStart")) == words);
    Must(back.value("Unit", "Requires") == unitName);
    Must(back.text() == file);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::string parts[3];
    std::size_t at = 0;
    for (std::string& part : parts) {
        part = bytes.substr(at, bytes.find('\0', at) - at);
        at = std::min(at + part.size() + 1, bytes.size());
    }
    WriteAndRead(parts[0], parts[1], parts[2]);
    Must(statusIn(bytes).state <= SERVICE_PAUSED);
    UnitText unit(bytes);
    unit.set("Service", "ExecStart", ":\"/bin/true\"");
    Must(UnitText(unit.text()).value("Service", "ExecStart") == ":\"/bin/true\"");
    return 0;
}
