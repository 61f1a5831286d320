// Any bytes as the prompter's settings: what is taken of them is kept when they are written.
#include "FuzzFile.h"
#include "view/SettingsFile.h"

using namespace prompter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FuzzFile file("settings", data, size);
    const Settings read = LoadSettings(file.Path());
    const auto& style = read.session.style;
    if (style.size < 8 || style.faces.size() > 16 || read.outputs.size() > 16) std::abort();
    if (read.desk.left >= read.desk.right || read.desk.top >= read.desk.bottom) std::abort();
    const std::string copy = file.Path() + "-copy";
    if (!SaveSettings(copy, read)) std::abort();
    const Settings again = LoadSettings(copy);
    if (again.session.style.size != style.size || again.session.style.faces != style.faces ||
        again.outputs.size() != read.outputs.size() || !(again.remote == read.remote) ||
        again.newsFolder != read.newsFolder || again.speed != read.speed)
        std::abort();
    return 0;
}
